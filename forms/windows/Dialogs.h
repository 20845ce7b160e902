// The message box, and the open and save dialogs, which follow the given settings.
#pragma once

#include <windows.h>

#include <string>

#include "services/Display.h"

namespace corvane {

/// A custom box, which scrolls a text too long for the screen. Esc and the close box answer
/// like the last button.
MessageAnswer ShowMessageBox(HWND owner, const std::string& text, MessageButtons buttons);

/// Sets the file name of the settings, or leaves it empty if the user cancels. Shows any failure.
void ShowFileDialog(HWND owner, CommonDialog& settings);

}  // namespace corvane
