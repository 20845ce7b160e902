#include <QtTest>

#include "Screen.h"

namespace corvane {
namespace {

// Another program reads the window's X11 properties.
TEST(TaskBar, ShowsNoDialogs) {
  TestForm form;
  form.cmdOK.Click = [] { Tell("box"); };
  PlayWhole(form, [&] {
    if (QGuiApplication::platformName() != "xcb") GTEST_SKIP() << "This is not X11.";
    WhenNext([] {
      QProcess reader;
      const QString id = QString::number(QApplication::activeModalWidget()->winId());
      reader.start("xprop", {"-id", id, "_NET_WM_STATE"});
      reader.waitForFinished();
      const QString states = QString::fromUtf8(reader.readAllStandardOutput());
      EXPECT_TRUE(states.contains("_NET_WM_STATE_SKIP_TASKBAR")) << qPrintable(states);
      PressKey("Esc");
    });
    PressAt(form.cmdOK);
  });
}

}  // namespace
}  // namespace corvane
