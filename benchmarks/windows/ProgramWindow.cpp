// The program up to its first window. Its argument is the file to open.
#include "OwnCosts.h"
#include "forms/Form1.h"
#include "services/Gestures.h"
#include "services/Program.h"

namespace {

corvane::Form1* Main;
const char* Game;

// Timer messages arrive only after all painting is done.
void CALLBACK Measure(HWND, UINT, UINT_PTR, DWORD) {
  if (!Game) return PrintOwnCosts();
  corvane::TheDisplay.ShowFileDialog = [](corvane::CommonDialog& dialog) {
    dialog.FileName = Game;
    dialog.FileTitle = "CC4.EXE";
  };
  corvane::OpenMenu(Main->mnuFile);
  corvane::Choose(Main->mnuFileOpen);
  if (Main->lstMaps.ListCount() == 0) ExitProcess(1);
  Game = nullptr;
}

}  // namespace

int main(int argc, char** argv) {
  corvane::Form1 form;
  Main = &form;
  Game = argc > 1 ? argv[1] : nullptr;
  SetTimer(nullptr, 0, USER_TIMER_MINIMUM, Measure);
  return corvane::RunProgram(argc, argv, form);
}
