// How the settings of a file dialog reach the system's, and its choice comes back.
#pragma once

#include <windows.h>
//
#include <commdlg.h>

#include "services/Display.h"

namespace corvane {

using Chooser = BOOL(WINAPI*)(OPENFILENAMEW*);  // GetOpenFileNameW and its like

void RunFileDialog(HWND owner, CommonDialog& settings, Chooser choose);

}  // namespace corvane
