// What the tests of the look share: the widgets on the screen, and pictures of them.
#pragma once

#include <gtest/gtest.h>

#include <QtWidgets>
#include <functional>

#include "Driver.h"
#include "TestForm.h"

namespace corvane {

/// Plays a script in the test form's window; without a window nothing in it could fail.
inline void PlayWhole(TestForm& form, const std::function<void()>& script) {
  bool played = false;
  Play(form, [&] {
    script();
    played = true;
  });
  EXPECT_TRUE(played);
}

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
