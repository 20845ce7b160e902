// What the widgets of a window show, held against the records of its controls.
#pragma once

#include <string>
#include <vector>

#include "services/Form.h"

namespace corvane {

/// A control as its widget shows it.
struct ControlState {
  std::string Text = {};  // or caption; "\n" is a line break
  std::vector<std::string> Rows = {};
  int Selected = -1;
  bool Enabled = true;
  bool Visible = true;
  bool operator==(const ControlState&) const = default;
};

/// As the widget in the topmost window has it. Each display has its own.
[[nodiscard]] ControlState SeenState(const Control& control);

/// The controls of the topmost form whose widgets show something else than the records hold, with
/// both states; empty if there is none.
[[nodiscard]] std::string ScreenDifferences(const Form& form);

}  // namespace corvane
