#include "NumericFields.h"

namespace corvane {

void BindField(TextBox& box, const NumericField& field, const RowControl& rows) {
  box.Validate = [&box, &field, &rows](bool& cancel) {
    if (EnterField(field, rows.ListIndex(), box.Text())) return;
    box.SelectAll();
    cancel = true;
  };
}

}  // namespace corvane
