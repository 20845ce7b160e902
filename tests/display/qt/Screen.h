// Shared by the tests of the Qt display: the visible widgets, and pictures of them.
#pragma once

#include <gtest/gtest.h>

#include <QtWidgets>

#include "TestForm.h"
#include "display/PlayWhole.h"

namespace corvane {

inline QWidget* MainWindow() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && qobject_cast<QMainWindow*>(window)) return window;
  }
  return nullptr;
}

template <class Kind = QWidget>
Kind* WidgetOf(const Control& control) {
  return MainWindow()->findChild<Kind*>(control.Name);
}

inline QImage Picture() { return MainWindow()->grab().toImage(); }

/// A widget's place in a picture of its window.
inline QRect PlaceIn(const QWidget& widget) {
  return {widget.mapTo(widget.window(), QPoint()), widget.size()};
}

}  // namespace corvane
