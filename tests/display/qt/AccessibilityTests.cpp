#include <QAccessible>
#include <QtTest>
#include <csignal>

#include "Look.h"
#include "Screen.h"
#include "services/Program.h"

using namespace corvane;

TEST(ScreenReader, GetsTheLabelOfAField) {
  TestForm form;
  Label label(form, {"label", "Number:", {2100, 360, 600, 255}, 30}, Alignment::Right);
  PlayWhole(form, [&] {
    const auto labels = QAccessible::queryAccessibleInterface(WidgetOf(form.txtNumber))
                            ->relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels[0].first->text(QAccessible::Name), "Number:");
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(WidgetOf(form.txtName))
                    ->relations(QAccessible::Label)
                    .isEmpty());
  });
}

TEST(ScreenReader, GetsTheRoleAndModalityOfADialog) {
  TestForm form, dialog;
  dialog.Menus.clear();
  form.cmdOK.Click = [&] { dialog.ShowModal(); };
  PlayWhole(form, [&] {
    WhenNext([] {
      EXPECT_EQ(QApplication::activeModalWidget()->height(), 360);
      const auto* seen = QAccessible::queryAccessibleInterface(QApplication::activeModalWidget());
      EXPECT_EQ(seen->role(), QAccessible::Dialog);
      EXPECT_TRUE(seen->state().modal);
      TheDisplay.EndProgram();
    });
    EXPECT_EQ(QAccessible::queryAccessibleInterface(MainWindow())->role(), QAccessible::Window);
    PressAt(form.cmdOK);
  });
}

// Sets the focus as a screen reader does: on the widget, bypassing the window.
TEST(Focus, FromOutsideMovesUnlessTheFieldRefuses) {
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

TEST(Focus, ReturnsFromAMenuThatABoxCloses) {
  TestForm form;
  form.QueryUnload = [] { return Ask("?"); };
  PlayWhole(form, [&] {
    PressKey("Alt+F");
    WhenNext([] { PressKey("N"); });
    EndSessionFromOutside();
    EXPECT_EQ(SeenFocus(), "lstRows");
    PressKey("Tab");
    EXPECT_EQ(SeenFocus(), "lstFew");
  });
}

TEST(Signals, IgnoredAtTheStartStayIgnored) {
  auto* const before = std::signal(SIGHUP, SIG_IGN);  // e.g. by nohup
  TestForm form;
  PlayWhole(form, [] { EXPECT_EQ(std::signal(SIGHUP, SIG_IGN), SIG_IGN); });
  std::signal(SIGHUP, before);
  EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_DFL);  // as before
}

TEST(ScreenReader, SelectsButNeverDeselectsARow) {
  TestForm form;
  PlayWhole(form, [&] {
    QAccessibleTableInterface* rows =
        QAccessible::queryAccessibleInterface(WidgetOf(form.lstRows))->tableInterface();
    ASSERT_NE(rows, nullptr);
    rows->selectRow(3);
    EXPECT_EQ(form.TakeLog(), "rowdog ");
    EXPECT_EQ(ScreenDifferences(form), "");
    rows->unselectRow(3);
    EXPECT_EQ(form.TakeLog(), "");
    EXPECT_EQ(ScreenDifferences(form), "");
    form.txtNumber.SetText("x");
    PressAt(form.txtNumber);
    rows->selectRow(1);
    EXPECT_EQ(form.TakeLog(), "refuse ");
    EXPECT_EQ(ScreenDifferences(form), "");
  });
}

TEST(Lists, PickRowsDuringADrag) {
  TestForm form;
  PlayWhole(form, [&] {
    const auto* list = WidgetOf<QListWidget>(form.lstRows);
    const auto at = [&](int row) { return list->visualItemRect(list->item(row)).center(); };
    QTest::mousePress(list->viewport(), Qt::LeftButton, {}, at(1));
    QMouseEvent move(QEvent::MouseMove, at(3), list->viewport()->mapToGlobal(at(3)), Qt::NoButton,
                     Qt::LeftButton, {});
    QCoreApplication::sendEvent(list->viewport(), &move);
    QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, at(3));
    EXPECT_EQ(form.TakeLog(), "rowbee rowdog ");
  });
}

TEST(Lines, AreNotDragged) {
  TestForm form;
  PlayWhole(form, [&] {
    PressAt(form.txtLines);
    Type("ab");
    PressKey("Ctrl+A");
    const auto* lines = WidgetOf<QPlainTextEdit>(form.txtLines);
    const QPoint selected = lines->cursorRect().center() - QPoint(3, 0);
    QTest::mousePress(lines->viewport(), Qt::LeftButton, {}, selected);
    EXPECT_FALSE(lines->textCursor().hasSelection());
    QTest::mouseRelease(lines->viewport(), Qt::LeftButton, {}, selected);
  });
}

// The platform used for tests has no bell.
TEST(Refusal, FlashesWithoutABell) {
  TestForm form;
  PlayWhole(form, [&] {
    PressAt(form.txtNumber);
    const QImage before = Picture();
    const QRect place = PlaceIn(*WidgetOf(form.txtNumber));
    const QPoint background(place.right() - 6, place.center().y());
    SystemBeep();
    EXPECT_GE(Contrast(Picture().pixelColor(background), before.pixelColor(background)),
              EdgeContrast);
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return Picture().pixelColor(background) == before.pixelColor(background); }));
  });
}
