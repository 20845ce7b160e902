// What asks the user: the message box, the system's own or one that scrolls for a text too long for
// that, and the open and the save dialog, as the settings ask for them.
#pragma once

#include <windows.h>
//
#include <commdlg.h>

#include <string>

#include "services/Display.h"

namespace corvane {

MessageAnswer ShowMessageBox(HWND owner, const std::string& text, MessageButtons buttons);
void ShowFileDialog(HWND owner, CommonDialog& settings, BOOL(WINAPI* choose)(OPENFILENAMEW*));

}  // namespace corvane
