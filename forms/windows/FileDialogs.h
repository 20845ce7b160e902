// Passes the settings of a file dialog to the system's dialog and returns its choice.
#pragma once

#include <windows.h>

#include <commdlg.h>

#include "services/Display.h"

namespace corvane {

/// Functions of comdlg32.dll.
struct SystemDialog {
  BOOL(WINAPI* Choose)(OPENFILENAMEW*);  // e.g. GetOpenFileNameW
  DWORD(WINAPI* Error)();                // CommDlgExtendedError: 0 after a cancel
};

/// If the dialog fails, shows the reason and sets no file name, as after a cancel.
void RunFileDialog(HWND owner, CommonDialog& settings, const SystemDialog& system);

}  // namespace corvane
