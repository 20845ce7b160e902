#include "services/Gestures.h"

#include <algorithm>
#include <functional>
#include <string>

#include "base/LetterCase.h"
#include "services/Display.h"
#include "services/FormView.h"

namespace corvane {
namespace {

bool SessionEndPending = false;  // until the box that was open at the request closes

// Performs a gesture unless the form is blocked, and shows the result. A pending signal comes last,
// so it never interrupts a save.
bool Perform(const Form& form, const std::function<bool()>& act) {
  const bool done = AcceptsGestures(form) && act();
  ShowChanges();
  if (SessionEndPending && !IsBoxOpen()) EndSession();
  return done;
}

// The same at a control. Its widget always returns to the control's state.
bool PerformAt(Control& control, const std::function<bool()>& act) {
  control.Redraw();
  return Perform(control.Owner, act);
}

// Whether the focused field lets the focus leave.
bool ValidateFocused(const Form& form) {
  const auto* box = dynamic_cast<TextBox*>(form.Focused);
  return !box || box->Validate();
}

bool IsUsable(const Control* control) {
  return control && control->TakesFocus() && control->Enabled() && control->Visible();
}

bool Focus(Control& to) {
  Form& form = to.Owner;
  if (!IsUsable(&to)) return false;
  if (form.Focused == &to) return true;
  if (!ValidateFocused(form)) return false;
  if (auto* box = dynamic_cast<TextBox*>(form.Focused)) box->History.EndTyping();
  form.Focused = &to;
  return true;
}

bool Pick(ListBox& list, int row) {
  if (row < 0 || row >= list.ListCount() || !Focus(list)) return false;
  list.SetListIndex(row);
  return true;
}

bool Pick(ComboBox& combo, int row) {
  if (row < 0 || row >= combo.ListCount() || !Focus(combo)) return false;
  if (row == combo.ListIndex()) {
    combo.Click();
  } else {
    combo.SetListIndex(row);
  }
  return true;
}

bool Click(Button& button) {
  if (!Focus(button)) return false;
  button.Click();
  return true;
}

bool IsTyped(const TextEdit& edit) {
  return edit.Removed == 0 && edit.Inserted != "\n" && CharacterCount(edit.Inserted) == 1;
}

bool Edit(TextBox& box, const TextEdit& edit) {
  if (!Focus(box)) return false;
  const int remaining = CharacterCount(ShownText(box)) - edit.Start - edit.Removed;
  const std::string after = EditedText(box, edit);
  if (after != box.Text()) {
    const EditHistory::State before{box.Text(), edit.Start + edit.Removed};
    if (IsTyped(edit)) {
      box.History.AddTyped(before);
    } else {
      box.History.Add(before);
    }
  }
  box.ReplaceText(after);
  box.SelStart = std::max(0, CharacterCount(ShownText(box)) - remaining);
  box.SelLength = 0;
  box.Redraw();  // the widget may show more than was accepted
  return true;
}

using HistoryStep = std::optional<EditHistory::State> (EditHistory::*)(EditHistory::State);

bool StepThrough(TextBox& box, HistoryStep step) {
  if (!Focus(box)) return false;
  const auto state = (box.History.*step)({box.Text(), box.SelStart});
  if (!state) return false;
  box.ReplaceText(state->Text);
  box.SelStart = state->Caret;
  box.SelLength = 0;
  box.SelectionSet = true;
  box.Redraw();
  return true;
}

bool PressEnter(Form& form, Modifiers with) {
  const auto* box = dynamic_cast<TextBox*>(form.Focused);
  if (box && box->MultiLine && with.Ctrl) return false;  // inserts a line break
  if (auto* focused = dynamic_cast<Button*>(form.Focused)) {
    focused->Click();
    return true;
  }
  if (!IsUsable(form.EnterButton)) return false;
  if (ValidateFocused(form)) form.EnterButton->Click();
  return true;
}

bool PressTab(const Form& form, Modifiers with) {
  const std::vector<Control*> order = form.TabOrder();
  const auto at = std::ranges::find(order, form.Focused);
  if (at == order.end()) return true;
  const auto count = static_cast<int>(order.size());
  const int step = with.Shift ? -1 : 1;
  const int next = (static_cast<int>(at - order.begin()) + step + count) % count;
  const bool moved = Focus(*order[static_cast<std::size_t>(next)]);
  auto* box = dynamic_cast<TextBox*>(form.Focused);
  if (moved && box && !box->MultiLine) box->SelectAll();
  return true;
}

bool PressEscape(const Form& form) {
  if (!IsUsable(form.EscapeButton)) return false;
  form.EscapeButton->Click();
  return true;
}

bool ChooseAvailable(const MenuItem& item) {
  if (item.Enabled) item.Click();
  return item.Enabled;
}

// Runs the menu's Click first, which updates whether the item is enabled.
bool PressShortcut(const Form& form, Shortcut key) {
  for (const MenuEntry* menu : form.Menus) {
    for (const MenuItem* item : menu->Items) {
      if (item->Key != key) continue;
      menu->Click();
      ChooseAvailable(*item);
      return true;
    }
  }
  return false;
}

bool PressMnemonic(const Form& form, char letter) {
  const std::string mnemonic = ToUpper(std::string{'&', letter});
  for (const AnyControl& any : form.Controls) {
    Button* const* button = std::get_if<Button*>(&any);
    if (!button || !IsUsable(*button)) continue;
    if (ToUpper((*button)->Caption).find(mnemonic) == std::string::npos) continue;
    Click(**button);
    return true;
  }
  return false;
}

bool StepThroughFocused(const Form& form, HistoryStep step) {
  auto* box = dynamic_cast<TextBox*>(form.Focused);
  if (box) StepThrough(*box, step);
  return box != nullptr;
}

bool PressLetter(const Form& form, char letter, Modifiers with) {
  const char key = ToUpper({&letter, 1})[0];
  if (with == Modifiers{.Alt = true}) return PressMnemonic(form, letter);
  if (with == Modifiers{.Ctrl = true} && key == 'S') return PressShortcut(form, Shortcut::CtrlS);
  if (with == Modifiers{.Ctrl = true} && key == 'Z') {
    return StepThroughFocused(form, &EditHistory::Undo);
  }
  const bool isRedo = with == Modifiers{.Ctrl = true, .Shift = true} && key == 'Z';
  if (isRedo || (with == Modifiers{.Ctrl = true} && key == 'Y')) {
    return StepThroughFocused(form, &EditHistory::Redo);
  }
  return false;
}

bool PressBackspace(const Form& form, Modifiers with) {
  if (with == Modifiers{.Alt = true}) return StepThroughFocused(form, &EditHistory::Undo);
  if (with == Modifiers{.Shift = true, .Alt = true}) {
    return StepThroughFocused(form, &EditHistory::Redo);
  }
  return false;
}

bool HandleKey(Form& form, const KeyStroke& stroke) {
  switch (stroke.Pressed) {
    case Key::Other:
      return false;  // left to the widget
    case Key::Letter:
      return PressLetter(form, stroke.Letter, stroke.With);
    case Key::Tab:
      return PressTab(form, stroke.With);
    case Key::Enter:
      return PressEnter(form, stroke.With);
    case Key::Escape:
      return PressEscape(form);
    case Key::Backspace:
      return PressBackspace(form, stroke.With);
  }
  return false;
}

}  // namespace

bool AcceptsGestures(const Form& form) { return !IsBoxOpen() && TopForm() == &form; }

bool MoveFocus(Control& to) {
  return Perform(to.Owner, [&] { return Focus(to); });
}

void FollowFocus(Control& now) {
  if (now.Owner.Focused != &now) static_cast<void>(MoveFocus(now));
}

bool AllowPress(Form& form, Control* under) {
  return Perform(form, [&] { return !under || Focus(*under); });
}

// Over an unfocused combo box, the wheel would pick a row.
bool AllowWheel(const Form& form, const Control* under) {
  if (!under || !AcceptsGestures(form)) return false;
  return form.Focused == under || !dynamic_cast<const ComboBox*>(under);
}

void PickRow(ListBox& list, int row) {
  PerformAt(list, [&] { return Pick(list, row); });
}

void PickRow(ComboBox& combo, int row) {
  PerformAt(combo, [&] { return Pick(combo, row); });
}

void DoubleClick(ListBox& list, int row) {
  PerformAt(list, [&] {
    if (!Pick(list, row) || !AcceptsGestures(list.Owner))
      return false;  // the pick may have opened a box
    if (list.Owner.Focused == &list && list.ListIndex() == row) list.DblClick();
    return true;
  });
}

void EditText(TextBox& box, const TextEdit& edit) {
  PerformAt(box, [&] { return Edit(box, edit); });
}

void Undo(TextBox& box) {
  PerformAt(box, [&] { return StepThrough(box, &EditHistory::Undo); });
}

void Redo(TextBox& box) {
  PerformAt(box, [&] { return StepThrough(box, &EditHistory::Redo); });
}

void Press(Button& button) {
  PerformAt(button, [&] { return Click(button); });
}

bool PressKey(Form& form, const KeyStroke& stroke) {
  if (!AcceptsGestures(form)) return true;
  return Perform(form, [&] { return HandleKey(form, stroke); });
}

void OpenMenu(MenuEntry& menu) {
  Perform(menu.Owner, [&] { return menu.Click(), true; });
}

void Choose(MenuItem& item) {
  Perform(item.Under.Owner, [&] { return ChooseAvailable(item); });
}

void CloseWindow(Form& form) {
  Perform(form, [&] { return form.Unload(), true; });
}

bool QueryEndSession() {
  if (IsBoxOpen()) return false;  // the user must answer it first
  for (const Form* form : OpenForms()) {
    if (!form->QueryEndSession() || !form->QueryUnload()) return false;
  }
  return true;
}

void EndSession() {
  const bool ends = QueryEndSession();
  SessionEndPending = IsBoxOpen();
  if (ends) {
    EndProgram();
  } else {
    ShowChanges();
  }
}

}  // namespace corvane
