#include "services/Program.h"

#include <windows.h>
//
#include <commctrl.h>
#include <objbase.h>

#include "Dialogs.h"
#include "FormWindow.h"

namespace corvane {

int RunProgram(int /*argc*/, char** /*argv*/, Form& form) {
  InitCommonControls();  // in the look that the manifest asks for
  static_cast<void>(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
  TheDisplay = ViewsAsDisplay([](Form& shown) { return std::make_unique<FormWindow>(shown); });
  TheDisplay.ShowMessage = [](const std::string& text, MessageButtons buttons) {
    return ShowMessageBox(FormWindow::Top(), text, buttons);
  };
  TheDisplay.ShowOpenDialog = [](CommonDialog& file) {
    ShowFileDialog(FormWindow::Top(), file, GetOpenFileNameW);
  };
  TheDisplay.ShowSaveDialog = [](CommonDialog& file) {
    ShowFileDialog(FormWindow::Top(), file, GetSaveFileNameW);
  };
  form.ShowModal();
  TheDisplay = {};
  return 0;
}

void SystemBeep() { MessageBeep(MB_OK); }

}  // namespace corvane
