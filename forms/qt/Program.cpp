#include "Program.h"

#include <QApplication>

#include "ControlWidgets.h"
#include "Display.h"
#include "FileDialogs.h"
#include "FormWindow.h"
#include "MessageWindow.h"

namespace corvane {
namespace {

Display QtDisplay(bool& ended) {
  Display display;
  display.ShowModal = [&ended](Form& form) {
    if (!ended) FormWindow(form).Run();
  };
  display.Close = [](Form& form) {
    if (FormWindow* window = FormWindow::Of(form)) window->Close();
  };
  display.Redraw = [](Control& control) {
    if (FormWindow* window = FormWindow::Of(control.Owner)) window->Mark(control);
  };
  display.ShowMessage = [](const std::string& text, MessageButtons buttons) {
    return ShowMessageBox(FormWindow::Beneath(), text, buttons);
  };
  display.ShowOpenDialog = [](CommonDialog& file) {
    ShowFileDialog(FormWindow::Beneath(), file, QFileDialog::AcceptOpen);
  };
  display.ShowSaveDialog = [](CommonDialog& file) {
    ShowFileDialog(FormWindow::Beneath(), file, QFileDialog::AcceptSave);
  };
  display.EndProgram = [&ended] {
    ended = true;
    QApplication::exit();  // leaves every nested loop, too
  };
  return display;
}

}  // namespace

int RunProgram(int argc, char** argv, Form& form) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  DressApplication();
  bool ended = false;
  TheDisplay = QtDisplay(ended);
  form.ShowModal();
  TheDisplay = {};
  return 0;
}

void SystemBeep() { QApplication::beep(); }

}  // namespace corvane
