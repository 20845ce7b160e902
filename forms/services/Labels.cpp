#include "services/Labels.h"

#include <cstdlib>

#include "services/Form.h"

namespace corvane {
namespace {

constexpr int LineGap = 30;  // twips that a field may lie off the lower edge of its heading

Control* AsField(const AnyControl& any) {
  if (TextBox* const* box = std::get_if<TextBox*>(&any)) return *box;
  if (ComboBox* const* box = std::get_if<ComboBox*>(&any)) return *box;
  if (ListBox* const* list = std::get_if<ListBox*>(&any)) return *list;
  return nullptr;
}

bool IsBeside(const Place& label, const Place& field) {
  return field.Top == label.Top && field.Left >= label.Left + label.Width;
}

bool IsBelow(const Place& label, const Place& field) {
  const int centre = label.Left + label.Width / 2;
  return std::abs(label.Top + label.Height - field.Top) <= LineGap && field.Left <= centre &&
         centre <= field.Left + field.Width;
}

}  // namespace

Control* FieldOf(const Label& label) {
  for (const AnyControl& any : label.Owner.Controls) {
    Control* field = AsField(any);
    if (!field || field->Parent != label.Parent) continue;
    if (IsBeside(label.At, field->At) || IsBelow(label.At, field->At)) return field;
  }
  return nullptr;
}

}  // namespace corvane
