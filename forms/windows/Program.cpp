#include "services/Program.h"

#include <windows.h>

#include <commctrl.h>
#include <objbase.h>

#include "Dialogs.h"
#include "FormWindow.h"
#include "SystemFunction.h"

namespace corvane {
namespace {

// Loads libraries only from the system's folder. A file dialog loads some by plain name, and the
// program's folder, often the downloads folder, would be searched first.
void RestrictLibrarySearch() {
  constexpr DWORD SystemFolder = 0x800;         // LOAD_LIBRARY_SEARCH_SYSTEM32
  constexpr DWORD FoldersOfExtensions = 0x400;  // LOAD_LIBRARY_SEARCH_USER_DIRS
  using Setter = BOOL(WINAPI*)(DWORD);          // Windows 8 and later, or Windows 7 with KB2533623
  const auto set = SystemFunction<Setter>(L"kernel32", "SetDefaultDllDirectories");
  if (set) set(SystemFolder | FoldersOfExtensions);
}

}  // namespace

int RunProgram(int /*argc*/, char** /*argv*/, Form& form) {
  RestrictLibrarySearch();
  InitCommonControls();  // with the look that the manifest requests
  static_cast<void>(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
  Display boxes;
  boxes.ShowMessage = [](const std::string& text, MessageButtons buttons) {
    return ShowMessageBox(FormWindow::Top(), text, buttons);
  };
  boxes.ShowFileDialog = [](CommonDialog& file) { ShowFileDialog(FormWindow::Top(), file); };
  RunInViews(form, boxes, [](Form& shown) { return std::make_unique<FormWindow>(shown); });
  return 0;
}

void SystemBeep() { MessageBeep(MB_OK); }

}  // namespace corvane
