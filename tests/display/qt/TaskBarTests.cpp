#include <QtTest>

#include "Screen.h"

namespace corvane {
namespace {

// A window's states in X11, as another program reads them.
QString StatesOf(const QWidget& window) {
  QProcess reader;
  reader.start("xprop", {"-id", QString::number(window.winId()), "_NET_WM_STATE"});
  reader.waitForFinished();
  return QString::fromUtf8(reader.readAllStandardOutput());
}

TEST(TaskBar, HasNoDialogsInIt) {
  TestForm form, dialog;
  form.cmdOK.Click = [&] { dialog.ShowModal(); };
  form.cmdHelp.Click = [] { Tell("box"); };
  dialog.cmdCancel.Click = [&] { dialog.Unload(); };
  dialog.QueryUnload = [] { return true; };
  PlayWhole(form, [&] {
    if (QGuiApplication::platformName() != "xcb") GTEST_SKIP() << "There is no X11 here.";
    EXPECT_FALSE(StatesOf(*MainWindow()).contains("SKIP_TASKBAR"));
    for (const Button* opens : {&form.cmdOK, &form.cmdHelp}) {
      WhenNext([] {
        const QString states = StatesOf(*QApplication::activeModalWidget());
        EXPECT_TRUE(states.contains("_NET_WM_STATE_SKIP_TASKBAR")) << qPrintable(states);
        EXPECT_TRUE(states.contains("_NET_WM_STATE_MODAL")) << qPrintable(states);
        PressKey("Esc");
      });
      PressAt(*opens);
    }
  });
}

}  // namespace
}  // namespace corvane
