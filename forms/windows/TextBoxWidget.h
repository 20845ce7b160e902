// The widget of a text box. What is typed, pasted or undone there goes to the form, which alone
// decides what the text then is; the widget's own undo is out of use.
#pragma once

#include "ControlWidgets.h"

namespace corvane {

[[nodiscard]] ControlWidget MakeTextBoxWidget(TextBox& box, HWND parent);

}  // namespace corvane
