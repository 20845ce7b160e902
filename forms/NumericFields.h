// Binds a text box to the number that it edits.
#pragma once

#include "rules/FieldEntry.h"
#include "services/Controls.h"

namespace corvane {

/// Lets Validate of the box store its number for the selected row of `rows`. A rejected text keeps
/// the focus and is fully selected.
void BindField(TextBox& box, const NumericField& field, const RowControl& rows);

}  // namespace corvane
