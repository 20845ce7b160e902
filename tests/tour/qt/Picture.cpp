#include "Picture.h"

#include <QApplication>
#include <QWidget>

namespace corvane {

bool SavePicture(const std::string& file) {
  QWidget* front = QApplication::activeModalWidget();
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (!front && window->isVisible() && !window->parentWidget()) front = window;
  }
  return front && front->grab().save(QString::fromStdString(file));
}

}  // namespace corvane
