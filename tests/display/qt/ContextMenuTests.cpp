#include "Screen.h"

namespace corvane {
namespace {

// Opens a box's menu and chooses an item by index, counted from 0.
void ChooseInMenu(QWidget& widget, int item) {
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

TEST(ContextMenu, UndoesAndRedoesWhatTheFormRemembers) {
  TestForm form;
  PlayWhole(form, [&] {
    for (TextBox* box : {&form.txtName, &form.txtLines}) {
      PressAt(*box);
      Type("ab");
      ChooseInMenu(*WidgetOf(*box), 0);
      EXPECT_EQ(box->Text(), "") << box->Name;
      EXPECT_EQ(Seen(*box), "") << box->Name;
      ChooseInMenu(*WidgetOf(*box), 1);
      EXPECT_EQ(box->Text(), "ab") << box->Name;
      EXPECT_EQ(Seen(*box), "ab") << box->Name;
    }
  });
}

}  // namespace
}  // namespace corvane
