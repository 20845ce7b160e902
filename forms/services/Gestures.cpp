#include "services/Gestures.h"

#include <algorithm>
#include <string>
#include <variant>

#include "base/LetterCase.h"

namespace corvane {
namespace {

// Asks the field that has the focus whether the focus may go.
bool ValidateFocused(const Form& form) {
  for (const AnyControl& any : form.Controls) {
    TextBox* const* box = std::get_if<TextBox*>(&any);
    if (!box || *box != form.Focused) continue;
    bool cancel = false;
    (*box)->Validate(cancel);
    return !cancel;
  }
  return true;
}

Button* FocusedButton(const Form& form) {
  for (const AnyControl& any : form.Controls) {
    if (Button* const* button = std::get_if<Button*>(&any); button && *button == form.Focused) {
      return *button;
    }
  }
  return nullptr;
}

bool Usable(const Button* button) { return button && button->Enabled() && button->Visible(); }

bool PressEnter(Form& form) {
  if (Button* focused = FocusedButton(form)) {
    focused->Click();
    return true;
  }
  if (!Usable(form.EnterButton)) return false;
  if (ValidateFocused(form)) form.EnterButton->Click();
  return true;
}

bool PressTab(const Form& form, int step) {
  const std::vector<Control*> order = form.TabOrder();
  const auto at = std::ranges::find(order, form.Focused);
  if (at == order.end()) return false;
  const auto count = static_cast<int>(order.size());
  const int next = (static_cast<int>(at - order.begin()) + step + count) % count;
  static_cast<void>(MoveFocus(*order[static_cast<std::size_t>(next)]));  // refused: it stays
  return true;
}

bool PressEscape(const Form& form) {
  if (!Usable(form.EscapeButton)) return false;
  form.EscapeButton->Click();
  return true;
}

}  // namespace

bool MoveFocus(Control& to) {
  Form& form = to.Owner;
  if (std::ranges::count(form.TabOrder(), &to) == 0) return false;
  if (form.Focused == &to) return true;
  if (!ValidateFocused(form)) return false;
  form.Focused = &to;
  return true;
}

void PickRow(ListBox& list, int row) {
  if (row >= 0 && row < list.ListCount() && MoveFocus(list)) list.SetListIndex(row);
}

void PickRow(ComboBox& combo, int row) {
  if (row < 0 || row >= combo.ListCount() || !MoveFocus(combo)) return;
  if (row == combo.ListIndex()) return combo.Click();
  combo.SetListIndex(row);
}

void DoubleClick(ListBox& list, int row) {
  PickRow(list, row);
  if (list.Owner.Focused == &list && list.ListIndex() == row) list.DblClick();
}

void EditText(TextBox& box, const TextEdit& edit) {
  if (!MoveFocus(box)) return;
  const int behind = CharacterCount(ShownText(box)) - edit.Start - edit.Removed;
  box.SetText(EditedText(box, edit));
  box.SelStart = std::max(0, CharacterCount(ShownText(box)) - behind);
  box.SelLength = 0;
  box.Redraw();  // what the display shows may differ from what was accepted
}

void Press(Button& button) {
  if (MoveFocus(button)) button.Click();
}

bool PressKey(Form& form, Key key) {
  switch (key) {
    case Key::Tab:
      return PressTab(form, 1);
    case Key::BackTab:
      return PressTab(form, -1);
    case Key::Enter:
      return PressEnter(form);
    case Key::Escape:
      return PressEscape(form);
  }
  return false;
}

bool PressMnemonic(const Form& form, char letter) {
  const std::string mnemonic = ToUpper(std::string{'&', letter});
  for (const AnyControl& any : form.Controls) {
    Button* const* button = std::get_if<Button*>(&any);
    if (!button || !Usable(*button)) continue;
    if (ToUpper((*button)->Caption).find(mnemonic) == std::string::npos) continue;
    Press(**button);
    return true;
  }
  return false;
}

void OpenMenu(MenuEntry& menu) { menu.Click(); }

void Choose(MenuItem& item) {
  if (item.Enabled) item.Click();
}

void PressShortcut(Form& form, Shortcut key) {
  for (MenuEntry* menu : form.Menus) {
    for (MenuItem* item : menu->Items) {
      if (item->Key != key) continue;
      OpenMenu(*menu);
      Choose(*item);
    }
  }
}

void CloseWindow(Form& form) { form.Unload(); }

}  // namespace corvane
