// The fonts of the windows, the measure of a text in them, and the resolution that both depend on.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace corvane {

constexpr int FontHeight = 160;  // of the controls, in twips: 8 points

/// The font of the controls. All fonts are kept until the program ends.
[[nodiscard]] HFONT ControlFont(int dpi);

/// A font of the controls as it is, or the largest smaller one that fits; the smallest where none
/// does.
[[nodiscard]] HFONT ShrinkToFit(HFONT font, const std::function<bool(HFONT)>& fits);

/// The system's fonts for messages and for the titles of windows.
struct SystemFonts {
  LOGFONTW Message, Title;
};
[[nodiscard]] SystemFonts GetSystemFonts(int dpi);

/// The pixels of a text; wrapped, if a width is given.
[[nodiscard]] SIZE MeasureText(const std::wstring& text, HFONT font, int width = 0);
[[nodiscard]] TEXTMETRICW MetricsOf(HFONT font);

/// The pixels from each letter of a line to the next, as they are measured. Some systems draw small
/// letters wider than they measure them, unless told these.
[[nodiscard]] std::vector<int> MeasureLetters(const std::wstring& text, HFONT font);

[[nodiscard]] int DpiOf(HWND window);
[[nodiscard]] RECT WorkArea(HWND window);  // of its screen, without the task bar

}  // namespace corvane
