// The open and the save dialog, as the settings ask for them.
#pragma once

#include <windows.h>
//
#include <commdlg.h>

#include "Display.h"

namespace corvane {

void ShowFileDialog(HWND owner, CommonDialog& settings, BOOL(WINAPI* choose)(OPENFILENAMEW*));

}  // namespace corvane
