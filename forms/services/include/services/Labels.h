// Which label belongs to which field, for whoever hears a window instead of seeing it.
#pragma once

#include "services/Controls.h"

namespace corvane {

/// The field or list that a label names: the one beside it in the same row, or right below it.
/// nullptr for a label that names none.
[[nodiscard]] Control* FieldOf(const Label& label);

/// The field whose line of text the label shares, or nullptr.
[[nodiscard]] Control* FieldBeside(const Label& label);

}  // namespace corvane
