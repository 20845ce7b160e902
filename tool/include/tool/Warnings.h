// Finds what is wrong or suspicious in a layer.
#pragma once

#include "tool/Layer.h"
#include "tool/Marks.h"

namespace corvane {

/// The findings of the consistency check on the tables of the process.
[[nodiscard]] Marks FindingMarks();

/// Faults and oddities, some of which the check reports as well: by map, then by arrow, then for
/// the Maps folder.
[[nodiscard]] Marks WarningsOf(const Layer& layer);

/// The warnings about one BTD file.
[[nodiscard]] Marks WarningsOf(const MapFile& file);

}  // namespace corvane
