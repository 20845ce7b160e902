#include "services/Form.h"

#include <algorithm>

#include "services/Display.h"
#include "services/FormView.h"

namespace corvane {
namespace {

std::vector<Form*> Stack;  // from the main window to the topmost one

}  // namespace

std::vector<Form*> OpenForms() { return {Stack.rbegin(), Stack.rend()}; }

Form* TopForm() { return Stack.empty() ? nullptr : Stack.back(); }

const char* KeysOf(Shortcut shortcut) { return shortcut == Shortcut::CtrlS ? "Ctrl+S" : ""; }

MenuItem::MenuItem(MenuEntry& under, const char* name, const char* caption, Shortcut key)
    : Under(under), Name(name), Caption(caption), Key(key) {
  under.Items.push_back(this);
}

MenuEntry::MenuEntry(Form& owner, const char* name, const char* caption)
    : Owner(owner), Name(name), Caption(caption) {
  owner.Menus.push_back(this);
}

Form::~Form() { std::erase(Stack, this); }

void Form::Open() {
  std::erase(Stack, this);
  Stack.push_back(this);
  Load();
  const std::vector<Control*> order = TabOrder();
  Focused = order.empty() ? nullptr : order.front();
}

void Form::ShowModal() {
  Open();
  if (!IsOpen() || TheDisplay.HasEnded) return;
  ShowChanges();  // in the windows below
  TheDisplay.ShowModal(*this);
}

void Form::Unload() {
  if (!QueryUnload()) return;
  std::erase(Stack, this);
  TheDisplay.Close(*this);
}

bool Form::IsOpen() const { return std::ranges::find(Stack, this) != Stack.end(); }

std::vector<Control*> Form::TabOrder() const {
  std::vector<Control*> order;
  for (const AnyControl& any : Controls) {
    Control* control = std::visit([](auto* it) -> Control* { return it; }, any);
    if (control->TakesFocus() && control->Enabled() && control->Visible()) order.push_back(control);
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
