// An empty window; with "word" there is one in it. With "select" it measures the selection of maps
// in bare widgets.
#include <cstring>

#include "Shown.h"

int main(int count, char** words) {
  QApplication application(count, words);
  QMainWindow window;
  const bool word = count == 2 && std::strcmp(words[1], "word") == 0;
  if (word) window.setCentralWidget(new QLabel(words[1]));
  window.resize(447, 341);
  window.show();
  while (!window.windowHandle()->isExposed()) QApplication::processEvents();
  if (count == 1 || word) std::_Exit(0);
  const auto place = [ground = new QWidget](auto* widget, const QRect& at) {
    widget->setParent(ground);
    widget->setGeometry(at);
    return widget;
  };
  constexpr char rowText[] = "007 Merlaut.btd";
  auto* maps = place(new QListWidget, {8, 24, 137, 251});
  auto* connections = place(new QListWidget, {296, 40, 129, 95});
  auto* arrows = place(new QComboBox, {384, 176, 41, 21});
  QList<QLineEdit*> fields;
  for (int top = 30; top < 270; top += 24) fields << place(new QLineEdit, {224, top, 41, 19});
  for (int map = 0; map < 43; ++map) maps->addItem(rowText);
  for (int arrow = 0; arrow < 81; ++arrow) arrows->addItem(QString::number(arrow));
  window.setCentralWidget(maps->parentWidget());
  PrintSelectTime([&](int map) {
    maps->setCurrentRow(map);
    for (QLineEdit* field : fields) field->setText(QString::number(100 + map));
    connections->clear();
    for (int row = 0; row < 2; ++row) connections->addItem(rowText);  // what most maps have
    connections->setCurrentRow(0);
    arrows->setCurrentIndex(map);
  });
  std::_Exit(0);
}
