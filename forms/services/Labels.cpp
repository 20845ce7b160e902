#include "services/Labels.h"

#include <cstdlib>
#include <initializer_list>

#include "services/Form.h"

namespace corvane {
namespace {

constexpr int MaxLineGap = 30;  // twips between a heading's lower edge and its field

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
  return std::abs(label.Top + label.Height - field.Top) <= MaxLineGap && field.Left <= centre &&
         centre <= field.Left + field.Width;
}

// The first field in the label's frame that satisfies one of `positions`.
Control* FindField(const Label& label,
                   std::initializer_list<bool (*)(const Place&, const Place&)> positions) {
  for (const AnyControl& any : label.Owner.Controls) {
    Control* field = AsField(any);
    if (!field || field->Parent != label.Parent) continue;
    for (const auto& fits : positions) {
      if (fits(label.At, field->At)) return field;
    }
  }
  return nullptr;
}

}  // namespace

Control* FieldOf(const Label& label) { return FindField(label, {IsBeside, IsBelow}); }

Control* FieldBeside(const Label& label) { return FindField(label, {IsBeside}); }

}  // namespace corvane
