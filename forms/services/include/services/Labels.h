// Which label belongs to which field, for screen readers.
#pragma once

#include "services/Controls.h"

namespace corvane {

/// The field or list that a label names: to its right in the same row, or directly below. nullptr
/// if there is none.
[[nodiscard]] Control* FieldOf(const Label& label);

/// The field to the right of a label in the same row, or nullptr.
[[nodiscard]] Control* FieldBeside(const Label& label);

}  // namespace corvane
