#include <QtTest>

#include "Screen.h"

namespace corvane {
namespace {

TEST(Focus, ByTabSelectsTheTextOfAFieldAndByMouseDoesNot) {
  TestForm form;
  form.txtName.SetText("name");
  PlayWhole(form, [&] {
    PressAt(form.txtNumber);
    PressKey("Tab");
    EXPECT_EQ(Seen(form.txtName), "[name]");
    PressAt(form.txtNumber);
    PressAt(form.txtName);
    EXPECT_EQ(Seen(form.txtName), "name");
  });
}

// Sets the focus as a screen reader does: on the widget, bypassing the window.
TEST(Focus, FromElsewhereIsTheFormsUnlessItsFieldRefuses) {
  TestForm form;
  PlayWhole(form, [&] {
    PressAt(form.cmdHelp);  // activates the window
    WidgetOf(form.txtNumber)->setFocus();
    EXPECT_EQ(form.Focused, &form.txtNumber);
    form.txtNumber.SetText("x");
    WidgetOf(form.cboRows)->setFocus();
    EXPECT_EQ(form.Focused, &form.txtNumber);
    EXPECT_TRUE(QTest::qWaitFor([&] { return WidgetOf(form.txtNumber)->hasFocus(); }));
    form.txtNumber.SetText("1");
    WidgetOf(form.cboRows)->setFocus();
    EXPECT_EQ(form.Focused, &form.cboRows);
  });
}

struct PaintCount : QObject {
  bool eventFilter(QObject*, QEvent* event) override {
    Paints += event->type() == QEvent::Paint;
    return false;
  }
  int Paints = 0;
};

TEST(Focus, RepaintsTheRowsOfAList) {
  TestForm form;
  PlayWhole(form, [&] {
    PressAt(form.cmdHelp);
    QApplication::processEvents();
    PaintCount count;
    WidgetOf<QListWidget>(form.lstRows)->viewport()->installEventFilter(&count);
    WidgetOf(form.lstRows)->setFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return count.Paints > 0; }));
  });
}

TEST(Windows, BearTheTitlesOfTheirForms) {
  TestForm form, dialog;
  dialog.Caption = "Another";
  form.cmdOK.Click = [&] { dialog.ShowModal(); };
  PlayWhole(form, [&] {
    EXPECT_EQ(MainWindow()->windowTitle(), "Test");
    WhenNext([] {
      EXPECT_EQ(QApplication::activeModalWidget()->windowTitle(), "Another");
      TheDisplay.EndProgram();
    });
    PressAt(form.cmdOK);
  });
}

}  // namespace
}  // namespace corvane
