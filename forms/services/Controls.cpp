#include "services/Controls.h"

#include <algorithm>

#include "base/LetterCase.h"
#include "services/Display.h"
#include "services/Form.h"
#include "services/TextEditing.h"

namespace corvane {

void Control::Redraw() { TheDisplay.Redraw(*this); }

void Control::SetEnabled(bool enabled) {
  if (IsEnabled == enabled) return;
  IsEnabled = enabled;
  if (!enabled) Owner.LoseFocus(*this);
  Redraw();
}

void Control::SetVisible(bool visible) {
  if (IsVisible == visible) return;
  IsVisible = visible;
  if (!visible) Owner.LoseFocus(*this);
  Redraw();
}

Label::Label(Form& owner, const ControlRow& row, Alignment align)
    : Control(owner, row), Align(align) {
  owner.Controls.emplace_back(this);
}

Frame::Frame(Form& owner, const ControlRow& row) : Control(owner, row) {
  owner.Controls.emplace_back(this);
}

Button::Button(Form& owner, const ControlRow& row) : Control(owner, row) {
  owner.Controls.emplace_back(this);
}

void RowControl::Clear() {
  Rows.clear();
  Selected = -1;
  Redraw();
}

void RowControl::AddItem(std::string_view text) {
  const auto place = Order == RowOrder::ByText
                         ? std::ranges::upper_bound(Rows, text, LessIgnoringCase) - Rows.begin()
                         : std::ssize(Rows);
  InsertItem(static_cast<int>(place), text);
}

void RowControl::InsertItem(int before, std::string_view text) {
  before = std::clamp(before, 0, ListCount());
  if (before <= Selected) ++Selected;
  Rows.emplace(Rows.begin() + before, text);
  Redraw();
}

const std::string& RowControl::List(int row) const {
  static const std::string none;
  return row >= 0 && row < ListCount() ? Rows[static_cast<std::size_t>(row)] : none;
}

void RowControl::SetList(int row, std::string_view text) {
  if (row < 0 || row >= ListCount()) return;
  Rows[static_cast<std::size_t>(row)] = text;
  Redraw();
}

void RowControl::SetListIndex(int row) {
  if (row < 0 || row >= ListCount()) row = -1;
  if (row == Selected) return;
  Selected = row;
  Redraw();
  Click();
}

ListBox::ListBox(Form& owner, const ControlRow& row, RowOrder order)
    : RowControl(owner, row, order) {
  owner.Controls.emplace_back(this);
}

ComboBox::ComboBox(Form& owner, const ControlRow& row) : RowControl(owner, row, RowOrder::AsAdded) {
  owner.Controls.emplace_back(this);
}

TextBox::TextBox(Form& owner, const ControlRow& row, int typedLimit, TextLines lines)
    : Control(owner, row), TypedLimit(typedLimit), MultiLine(lines == TextLines::Several) {
  owner.Controls.emplace_back(this);
}

void TextBox::SetText(std::string_view text) {
  History = {};
  ReplaceText(text);
}

void TextBox::ReplaceText(std::string_view text) {
  if (Content == text) return;
  Content = text;
  SelStart = 0;
  SelLength = 0;
  Redraw();
  Change();
}

void TextBox::SelectAll() {
  SelStart = 0;
  SelLength = CharacterCount(ShownText(*this));
  SelectionSet = true;
  Redraw();
}

}  // namespace corvane
