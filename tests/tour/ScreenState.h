// Compares what the widgets of a window show with the records of its controls.
#pragma once

#include <string>
#include <vector>

#include "services/Form.h"

namespace corvane {

/// A control as its widget shows it.
struct ControlState {
  std::string Text = {};  // or the caption; "\n" breaks lines
  std::vector<std::string> Rows = {};
  int Selected = -1;
  std::string AccessibleName = {};
  bool Enabled = true;
  bool Visible = true;
  bool operator==(const ControlState&) const = default;
};

/// Reads the widget in the topmost window. Each display implements it.
[[nodiscard]] ControlState SeenState(const Control& control);

/// The text of a control, or of its selected row, on the screen.
[[nodiscard]] inline std::string Seen(const Control& control) { return SeenState(control).Text; }

/// The controls of the topmost form whose widgets differ from the records, with both states; empty
/// if none do.
[[nodiscard]] std::string ScreenDifferences(const Form& form);

}  // namespace corvane
