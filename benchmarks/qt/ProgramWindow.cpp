// The program up to its first window. Its argument is the file to open; with "select" it measures
// the selection of maps.
#include "SelectTime.h"
#include "forms/Form1.h"
#include "services/Program.h"

int main(int argc, char** argv) {
  corvane::Form1 form;
  const auto measure = [&] {
    QWindow* window = QGuiApplication::topLevelWindows().constFirst();
    while (!window->isExposed()) QApplication::processEvents();
    if (argc == 1) std::_Exit(0);
    corvane::TheDisplay.ShowFileDialog = [&](corvane::CommonDialog& dialog) {
      dialog.FileName = argv[1];
      dialog.FileTitle = "CC4.EXE";
    };
    QWidget::find(window->winId())->findChild<QAction*>("mnuFileOpen")->trigger();
    QApplication::processEvents();
    if (argc == 2) std::_Exit(0);
    PrintSelectTime([&](int map) {
      const int key = map > form.lstMaps.ListIndex() ? Qt::Key_Down : Qt::Key_Up;
      QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
      QApplication::sendEvent(window, &event);
      if (form.lstMaps.ListIndex() != map) std::_Exit(1);
    });
    std::_Exit(0);
  };
  form.Load = [&] { QTimer::singleShot(0, measure); };
  return corvane::RunProgram(argc, argv, form);
}
