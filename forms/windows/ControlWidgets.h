// The widgets that show the controls of a form, and the font that their places are made for. A
// widget is a window of one of the system's own classes.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "services/Controls.h"

namespace corvane {

constexpr int FontHeight = 160;  // twips: 8 points

struct ControlWidget {
  Control* Shown;
  HWND Widget;
  // Shows the control's present state; what is alike stays untouched.
  std::function<void()> Mirror = [] {};
  std::function<void(int code)> Notice = [](int) {};  // hears what was done to the widget
};

[[nodiscard]] ControlWidget MakeControlWidget(const AnyControl& control, HWND parent);

/// Gives a widget its place in pixels, a font in which its caption is whole there, and its state.
void Dress(const ControlWidget& widget, int dpi);

/// The pixels of a text in letters of that height; wrapped, if a width is given.
[[nodiscard]] SIZE RoomFor(const std::wstring& text, int letters, int width = 0);
[[nodiscard]] int DpiOf(HWND window);
[[nodiscard]] RECT ScreenArea(HWND window);  // of its screen, without the task bar
[[nodiscard]] constexpr int ToPixels(int twips, int dpi) { return (twips * dpi + 720) / 1440; }

}  // namespace corvane
