// How the settings of a file dialog reach the system's, and its choice comes back.
#pragma once

#include <windows.h>
//
#include <commdlg.h>

#include "services/Display.h"

namespace corvane {

/// The functions of comdlg32.dll.
struct SystemDialog {
  BOOL(WINAPI* Choose)(OPENFILENAMEW*);  // GetOpenFileNameW and its like
  DWORD(WINAPI* Error)();                // CommDlgExtendedError: 0 after a cancel
};

/// A dialog that fails gives nothing back, as a cancel does, and tells why.
void RunFileDialog(HWND owner, CommonDialog& settings, const SystemDialog& system);

}  // namespace corvane
