// The floor for the program's window: the same controls, texts and rows as bare widgets. Its
// argument is the control list; with "select" it measures the selection of maps.
#include <QtWidgets>

#include "../ControlList.h"
#include "SelectTime.h"

namespace {

using corvane::ListedControl;
using corvane::ListedKind;

struct BareWindow : QMainWindow {
  explicit BareWindow(const char* list);
  void AddControl(const ListedControl& control);
  void AddMenu(const ListedControl& menu);

  QList<QWidget*> Widgets;
  QListWidget* Connections = nullptr;
  QListWidget* Maps = nullptr;
  QComboBox* Arrows = nullptr;
  QList<QLineEdit*> Fields;
};

BareWindow::BareWindow(const char* list) {
  setWindowTitle("Bare");
  setCentralWidget(new QWidget);
  for (const ListedControl& control : corvane::ReadControls(list)) {
    if (control.Kind < ListedKind::Menu) {
      AddControl(control);
    } else {
      AddMenu(control);
    }
  }
  resize(447, 319 + menuBar()->heightForWidth(447));
}

QListWidget* MakeList(const ListedControl& control) {
  auto* list = new QListWidget;
  for (const std::string& row : control.Rows) list->addItem(QString::fromStdString(row));
  list->setCurrentRow(control.Selected);
  return list;
}

QComboBox* MakeCombo(const ListedControl& control) {
  auto* combo = new QComboBox;
  for (const std::string& row : control.Rows) combo->addItem(QString::fromStdString(row));
  combo->setCurrentIndex(control.Selected);
  return combo;
}

QLabel* MakeLabel(const ListedControl& control) {
  constexpr Qt::Alignment Alignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
  auto* label = new QLabel(QString::fromStdString(control.Text));
  label->setAlignment(Alignments[control.Align] | Qt::AlignVCenter);
  label->setWordWrap(true);
  return label;
}

void BareWindow::AddControl(const ListedControl& control) {
  const QString text = QString::fromStdString(control.Text);
  QWidget* widget = nullptr;
  switch (control.Kind) {
    case ListedKind::Label:
      widget = MakeLabel(control);
      break;
    case ListedKind::Frame:
      widget = new QGroupBox(text);
      break;
    case ListedKind::Button:
      widget = new QPushButton(text);
      break;
    case ListedKind::ListBox:
      Connections = Maps;  // the connections come first
      widget = Maps = MakeList(control);
      break;
    case ListedKind::ComboBox:
      widget = Arrows = MakeCombo(control);
      break;
    default:
      widget = Fields.emplace_back(new QLineEdit(text));
      break;
  }
  widget->setParent(control.Parent < 0 ? centralWidget() : Widgets.at(control.Parent));
  widget->setGeometry(control.Left, control.Top, control.Width, control.Height);
  widget->setEnabled(control.Enabled);
  widget->setVisible(control.Visible);
  Widgets << widget;
}

void BareWindow::AddMenu(const ListedControl& menu) {
  const QString text = QString::fromStdString(menu.Text);
  if (menu.Kind == ListedKind::Menu) {
    menuBar()->addMenu(text);
    return;
  }
  QAction* item = menuBar()->actions().constLast()->menu()->addAction(text);
  for (const std::string& keys : menu.Rows) item->setShortcut(QString::fromStdString(keys));
}

// The fewest calls that a selection needs: rows change in place.
void Select(const BareWindow& window, int map) {
  window.Maps->setCurrentRow(map);
  for (QLineEdit* field : window.Fields) field->setText(QString::number(100 + map));
  for (int row = 0; row < window.Connections->count(); ++row)
    window.Connections->item(row)->setText(window.Maps->item((map + row) % 43)->text());
  window.Arrows->setCurrentIndex(map);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QFont font;
  font.setFamilies({"Tahoma", "DejaVu Sans Condensed", "Liberation Sans", font.family()});
  font.setPixelSize(11);
  QApplication::setFont(font);
  BareWindow window(argv[1]);
  window.show();
  while (!window.windowHandle()->isExposed()) QApplication::processEvents();
  if (argc > 2) PrintSelectTime([&](int map) { Select(window, map); });
  std::_Exit(window.Widgets.isEmpty());
}
