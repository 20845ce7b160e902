#include "services/Program.h"

#include <QApplication>
#include <QIcon>
#include <QSettings>

#include "Accessibility.h"
#include "Dialogs.h"
#include "FormWindow.h"
#include "Look.h"
#include "SessionEnd.h"
#include "TaskBar.h"
#include "services/Display.h"

namespace corvane {

int RunProgram(int argc, char** argv, Form& form) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setDesktopFileName("org.corvane.Corvane");
  QApplication::setWindowIcon(QIcon::fromTheme("org.corvane.Corvane"));
  // Stores no settings: the file dialog would keep a history.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
  ApplyLook();
  InstallAccessibility();
  KeepDialogsOutOfTaskBar();
  const SessionEnd sessionEnd;
  Display boxes;
  boxes.ShowMessage = [](const std::string& text, MessageButtons buttons) {
    return ShowMessageBox(FormWindow::Top(), text, buttons);
  };
  boxes.ShowFileDialog = [](CommonDialog& file) { ShowFileDialog(FormWindow::Top(), file); };
  RunInViews(form, boxes, [](Form& shown) { return std::make_unique<FormWindow>(shown); });
  return 0;
}

void SystemBeep() {
  QApplication::beep();
  const bool hasBell = QGuiApplication::platformName() == "xcb";
  if (QWidget* refused = QApplication::focusWidget(); refused && !hasBell) Flash(refused);
}

}  // namespace corvane
