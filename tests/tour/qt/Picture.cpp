#include "Picture.h"

#include <QApplication>
#include <QWidget>

namespace corvane {

bool SavePicture(const std::string& file) {
  QWidget* front = QApplication::activeModalWidget();
  if (!front) front = QApplication::activeWindow();
  return front && front->grab().save(QString::fromStdString(file));
}

}  // namespace corvane
