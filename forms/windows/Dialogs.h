// What asks the user: the message box, and the open and the save dialog as the settings ask for
// them.
#pragma once

#include <windows.h>

#include <string>

#include "services/Display.h"

namespace corvane {

/// A box of our own, which scrolls a text that is too long for the screen. Esc and the close box
/// answer No.
MessageAnswer ShowMessageBox(HWND owner, const std::string& text, MessageButtons buttons);

enum class FileDialogKind { Open, Save };
void ShowFileDialog(HWND owner, CommonDialog& settings, FileDialogKind kind);

}  // namespace corvane
