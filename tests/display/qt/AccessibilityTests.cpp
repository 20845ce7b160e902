#include <QAccessible>
#include <QtTest>

#include "Look.h"
#include "Screen.h"
#include "services/Program.h"

namespace corvane {
namespace {

TEST(ScreenReader, HearsThatADialogIsOneAndModal) {
  TestForm form, dialog;
  form.cmdOK.Click = [&] { dialog.ShowModal(); };
  PlayWhole(form, [&] {
    WhenNext([] {
      QAccessibleInterface* told =
          QAccessible::queryAccessibleInterface(QApplication::activeModalWidget());
      EXPECT_EQ(told->role(), QAccessible::Dialog);
      EXPECT_TRUE(told->state().modal);
      EXPECT_EQ(told->text(QAccessible::Name), "Test");
      TheDisplay.EndProgram();
    });
    EXPECT_EQ(QAccessible::queryAccessibleInterface(MainWindow())->role(), QAccessible::Window);
    PressAt(form.cmdOK);
  });
}

TEST(ScreenReader, HearsTheLabelOfAField) {
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

// The platform of the tests has no bell either.
TEST(Refusal, ShowsWhereThereIsNoBell) {
  TestForm form;
  PlayWhole(form, [&] {
    PressAt(form.txtNumber);
    const QImage before = Picture();
    const QRect place = PlaceIn(*WidgetOf(form.txtNumber));
    const QPoint ground(place.right() - 6, place.center().y());
    SystemBeep();
    EXPECT_GE(Contrast(Picture().pixelColor(ground), before.pixelColor(ground)), EdgeContrast);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return Picture().pixelColor(ground) == before.pixelColor(ground); }));
  });
}

}  // namespace
}  // namespace corvane
