#include "Screen.h"

using namespace corvane;

// Opens a box's menu and chooses an item by index, counted from 0.
static void ChooseInMenu(QWidget& widget, int item) {
  auto* area = qobject_cast<QAbstractScrollArea*>(&widget);
  QWidget* target = area ? area->viewport() : &widget;
  const QPoint at = target->rect().center();
  QContextMenuEvent request(QContextMenuEvent::Mouse, at, target->mapToGlobal(at));
  QApplication::sendEvent(target, &request);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_TRUE(menu);
  menu->actions().at(item)->trigger();
  menu->close();
}

TEST(ContextMenu, UsesTheHistoryOfTheBox) {
  TestForm form;
  PlayWhole(form, [&] {
    for (TextBox* box : {&form.txtName, &form.txtLines}) {
      PressAt(*box);
      Type("ab");
      for (const int item : {0, 1}) {
        ChooseInMenu(*WidgetOf(*box), item);
        EXPECT_EQ(box->Text(), item == 0 ? "" : "ab") << box->Name;
        EXPECT_EQ(Seen(*box), box->Text()) << box->Name;
      }
    }
  });
}
