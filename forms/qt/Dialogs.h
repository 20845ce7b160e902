// The message box, which shows text of any length for reading and copying and keeps its buttons
// visible, and the open and save dialogs, which follow the given settings.
#pragma once

#include <string>

#include "services/Display.h"

class QWidget;

namespace corvane {

/// Esc and the close box answer like the last button.
MessageAnswer ShowMessageBox(QWidget* owner, const std::string& text, MessageButtons buttons);

/// Sets the file name of the settings, or leaves it empty if the user cancels.
void ShowFileDialog(QWidget* owner, CommonDialog& settings);

}  // namespace corvane
