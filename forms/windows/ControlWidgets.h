// The widgets that show the controls of a form, and its place. A widget is a window of one of
// the system's own classes.
#pragma once

#include <windows.h>

#include <functional>
#include <span>

#include "services/Controls.h"

namespace corvane {

enum class Layer { Front, Labels, Frames };  // from front to back

struct ControlWidget {
  Control* Shown;
  HWND Widget;
  Layer In = Layer::Front;
  // Shows the control's present state; what is alike stays untouched.
  std::function<void()> Mirror = [] {};
  std::function<void(int code)> Notice = [](int) {};  // hears what was done to the widget
  std::function<void(const DRAWITEMSTRUCT&)> DrawRow = [](const DRAWITEMSTRUCT&) {};
  // Gives a widget in its place the font for a resolution.
  std::function<void(int dpi)> SetFont = [](int) {};
  // How far below its top its one line of text stands; 0 without such a line.
  std::function<int()> LineTop = [] { return 0; };
};

[[nodiscard]] ControlWidget MakeControlWidget(const AnyControl& control, HWND parent);

/// Gives all widgets of a window their places in pixels, fonts in which their captions are whole
/// there, and their states.
void ApplyLayout(std::span<const ControlWidget> widgets, int dpi);

/// Forgets what screen readers were told of a widget that goes.
void ReleaseWidget(const ControlWidget& widget);

}  // namespace corvane
