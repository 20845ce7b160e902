// The fonts of the windows, text measurement, and the resolution that both depend on.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace corvane {

constexpr int FontHeight = 160;  // twips, for controls: 8 points

/// The font of the controls. Fonts live until the program ends.
[[nodiscard]] HFONT ControlFont(int dpi);

/// The given control font, or the largest smaller one that fits; the smallest if none does.
[[nodiscard]] HFONT ShrinkToFit(HFONT font, const std::function<bool(HFONT)>& fits);

/// The system's fonts for messages and for the titles of windows.
struct SystemFonts {
  LOGFONTW Message, Title;
};
[[nodiscard]] SystemFonts GetSystemFonts(int dpi);

/// The size of a text in pixels; wraps if a width is given.
[[nodiscard]] SIZE MeasureText(const std::wstring& text, HFONT font, int width = 0);
[[nodiscard]] TEXTMETRICW MetricsOf(HFONT font);

/// The measured advance of each letter in pixels. Some systems draw small letters wider than they
/// measure unless given these.
[[nodiscard]] std::vector<int> MeasureLetters(const std::wstring& text, HFONT font);

[[nodiscard]] int DpiOf(HWND window);
[[nodiscard]] RECT WorkArea(HWND window);  // of the window's screen, without the task bar

}  // namespace corvane
