#include "NumericFields.h"

namespace corvane {

void BindField(TextBox& box, const NumericField& field, const RowControl& rows) {
  box.Validate = [&box, &field, &rows] {
    const bool stored = EnterField(field, rows.ListIndex(), box.Text());
    if (!stored) box.SelectAll();
    return stored;
  };
}

}  // namespace corvane
