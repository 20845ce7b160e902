// Binds a text box to the number that it edits.
#pragma once

#include "rules/FieldEntry.h"
#include "services/Controls.h"

namespace corvane {

/// Makes the Validate of the box store its number for the selected row of `rows`. If it rejects the
/// text, the box keeps the focus with all of it selected.
void BindField(TextBox& box, const NumericField& field, const RowControl& rows);

}  // namespace corvane
