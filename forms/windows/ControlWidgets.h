// The widgets that show a form's controls, and their layout. A widget is a window of a system
// class.
#pragma once

#include <windows.h>

#include <functional>
#include <span>

#include "services/Controls.h"

namespace corvane {

enum class Layer { Front, Labels, Frames };  // from front to back

struct ControlWidget;
void SetDefaultFont(const ControlWidget& widget, int dpi);

struct ControlWidget {
  Control* Shown;
  HWND Widget;
  Layer ZOrder = Layer::Front;
  // Shows the control's state; leaves unchanged parts alone.
  std::function<void()> Mirror = [] {};
  std::function<void(int code)> OnNotify = [](int) {};  // handles a notification from the widget
  std::function<void(const DRAWITEMSTRUCT&)> DrawRow = [](const DRAWITEMSTRUCT&) {};
  // Sets the font for a resolution; the widget must already have its place.
  void (*SetFont)(const ControlWidget&, int dpi) = SetDefaultFont;
  // Pixels from the widget's top to its line of text; 0 if it has no such line.
  std::function<int()> LineTop = [] { return 0; };
};

/// Creates the widget of a control, without its place and font. Its parent destroys it.
[[nodiscard]] ControlWidget MakeControlWidget(const AnyControl& control, HWND parent);

/// Sets the places of all widgets of a window in pixels, and fonts that fit their captions.
void ApplyLayout(std::span<const ControlWidget> widgets, int dpi);

/// Removes a widget's text for screen readers before it is destroyed.
void ReleaseWidget(const ControlWidget& widget);

}  // namespace corvane
