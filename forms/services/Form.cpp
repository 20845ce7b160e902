#include "services/Form.h"

#include <algorithm>
#include <type_traits>

#include "services/Display.h"

namespace corvane {
namespace {

// The control as one that can take the focus, or nothing for labels and frames.
Control* FocusTaker(const AnyControl& any) {
  return std::visit(
      [](auto* control) -> Control* {
        using Kind = std::remove_pointer_t<decltype(control)>;
        if constexpr (std::is_same_v<Kind, Label> || std::is_same_v<Kind, Frame>) {
          return nullptr;
        } else {
          return control;
        }
      },
      any);
}

}  // namespace

MenuItem::MenuItem(MenuEntry& under, const char* name, const char* caption, Shortcut key)
    : Under(under), Name(name), Caption(caption), Key(key) {
  under.Items.push_back(this);
}

MenuEntry::MenuEntry(Form& owner, const char* name, const char* caption)
    : Owner(owner), Name(name), Caption(caption) {
  owner.Menus.push_back(this);
}

void Form::Open() {
  Opened = true;
  Load();
  const std::vector<Control*> order = TabOrder();
  Focused = order.empty() ? nullptr : order.front();
}

void Form::ShowModal() {
  Open();
  if (Opened) TheDisplay.ShowModal(*this);
}

void Form::Unload() {
  bool cancel = false;
  QueryUnload(cancel);
  if (cancel) return;
  Opened = false;
  TheDisplay.Close(*this);
}

std::vector<Control*> Form::TabOrder() const {
  std::vector<Control*> order;
  for (const AnyControl& any : Controls) {
    Control* control = FocusTaker(any);
    if (control && control->Enabled() && control->Visible()) order.push_back(control);
  }
  std::ranges::sort(order, {}, [](const Control* control) { return control->TabIndex; });
  return order;
}

void Form::LoseFocus(const Control& control) {
  if (Focused != &control) return;
  const std::vector<Control*> order = TabOrder();
  const auto after = [&](const Control* next) { return next->TabIndex > control.TabIndex; };
  const auto next = std::ranges::find_if(order, after);
  if (next != order.end()) {
    Focused = *next;
  } else {
    Focused = order.empty() ? nullptr : order.front();
  }
}

}  // namespace corvane
