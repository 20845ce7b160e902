#include "FormList.h"

#include <algorithm>

namespace corvane {
namespace {

constexpr int TwipsPerPixel = 15;

void AddRows(ListedControl& listed, const RowControl& list) {
  for (int row = 0; row < list.ListCount(); ++row) listed.Rows.push_back(list.List(row));
  listed.Selected = list.ListIndex();
}

void AddState(ListedControl& listed, const Label& label) {
  listed.Kind = ListedKind::Label;
  listed.Align = static_cast<int>(label.Align);
}
void AddState(ListedControl& listed, const Frame&) { listed.Kind = ListedKind::Frame; }
void AddState(ListedControl& listed, const Button&) { listed.Kind = ListedKind::Button; }
void AddState(ListedControl& listed, const ListBox& list) {
  listed.Kind = ListedKind::ListBox;
  AddRows(listed, list);
}
void AddState(ListedControl& listed, const ComboBox& list) {
  listed.Kind = ListedKind::ComboBox;
  AddRows(listed, list);
}
void AddState(ListedControl& listed, const TextBox& box) {
  listed.Kind = ListedKind::TextBox;
  listed.Text = box.Text();
}

template <class Kind>
ListedControl Listed(const Kind& control) {
  const Place& at = control.At;
  ListedControl listed{.Left = at.Left / TwipsPerPixel,
                       .Top = at.Top / TwipsPerPixel,
                       .Width = at.Width / TwipsPerPixel,
                       .Height = at.Height / TwipsPerPixel,
                       .Enabled = control.Enabled(),
                       .Visible = control.Visible(),
                       .Text = control.Caption};
  AddState(listed, control);
  return listed;
}

const Control* ControlOf(const AnyControl& any) {
  return std::visit([](const auto* control) -> const Control* { return control; }, any);
}

// The index of a control's frame in the list; -1 if it has none.
int ParentOf(const Form& form, const AnyControl& any) {
  const Control* frame = ControlOf(any)->Parent;
  const auto at = std::ranges::find(form.Controls, frame, ControlOf);
  return frame ? static_cast<int>(at - form.Controls.begin()) : -1;
}

}  // namespace

std::vector<ListedControl> ListControls(const Form& form) {
  std::vector<ListedControl> list;
  for (const AnyControl& any : form.Controls) {
    list.push_back(std::visit([](const auto* control) { return Listed(*control); }, any));
    list.back().Parent = ParentOf(form, any);
  }
  for (const MenuEntry* entry : form.Menus) {
    list.push_back({.Kind = ListedKind::Menu, .Text = entry->Caption});
    for (const MenuItem* item : entry->Items) {
      list.push_back({.Kind = ListedKind::MenuItem, .Text = item->Caption});
      if (item->Key == Shortcut::CtrlS) list.back().Rows = {"Ctrl+S"};
    }
  }
  return list;
}

}  // namespace corvane
