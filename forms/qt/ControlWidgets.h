// The widgets that show the controls of a form.
#pragma once

#include <functional>

#include "services/Controls.h"

class QWidget;

namespace corvane {

struct ControlWidget {
  Control* Shown;
  QWidget* Widget;
  std::function<void()> Mirror;  // shows the control's state; leaves unchanged parts alone
};

/// Creates the widget of a control in its place, named after it. Its parent owns it.
[[nodiscard]] ControlWidget MakeControlWidget(const AnyControl& control, QWidget* parent);

}  // namespace corvane
