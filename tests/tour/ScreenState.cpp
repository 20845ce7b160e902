#include "ScreenState.h"

#include <sstream>

#include "services/TextEditing.h"

namespace corvane {
namespace {

ControlState StateOf(const Control& control) { return {.Text = control.Caption}; }

ControlState StateOf(const RowControl& list) {
  ControlState state{.Text = list.Text(), .Selected = list.ListIndex()};
  for (int row = 0; row < list.ListCount(); ++row) state.Rows.push_back(list.List(row));
  return state;
}

ControlState StateOf(const TextBox& box) { return {.Text = ShownText(box)}; }

ControlState RecordOf(const AnyControl& any) {
  return std::visit(
      [](const auto* control) {
        ControlState state = StateOf(*control);
        const Frame* parent = control->Parent;
        state.Enabled = control->Enabled() && (!parent || parent->Enabled());
        state.Visible = control->Visible();
        state.AccessibleName = control->AccessibleName;
        return state;
      },
      any);
}

std::string Print(const ControlState& state) {
  std::ostringstream text;
  text << '"' << state.Text << "\" row " << state.Selected << " of";
  for (const std::string& row : state.Rows) text << ' ' << row << ',';
  text << " named " << state.AccessibleName << (state.Enabled ? " enabled" : " greyed")
       << (state.Visible ? "" : " hidden");
  return text.str();
}

}  // namespace

std::string ScreenDifferences(const Form& form) {
  std::string differences;
  for (const AnyControl& any : form.Controls) {
    const Control& control = *std::visit([](auto* it) -> const Control* { return it; }, any);
    const ControlState seen = SeenState(control), record = RecordOf(any);
    if (seen == record) continue;
    differences +=
        std::string(control.Name) + " shows " + Print(seen) + " for " + Print(record) + "\n";
  }
  return differences;
}

}  // namespace corvane
