// The widget of a text box. Typing, pasting and undo go to the form, which alone decides the
// resulting text; the widget's own undo is disabled.
#pragma once

#include "ControlWidgets.h"

namespace corvane {

[[nodiscard]] ControlWidget MakeTextBoxWidget(TextBox& box, HWND parent);

}  // namespace corvane
