// What is wrong or odd in a layer, as far as the files tell.
#pragma once

#include "tool/Layer.h"
#include "tool/Marks.h"

namespace corvane {

/// The findings of the consistency check on the tables of the process.
[[nodiscard]] Marks FindingMarks();

/// What the check does not look at, map by map, then arrow by arrow.
[[nodiscard]] Marks WarningsOf(const Layer& layer);

/// The same for one BTD file alone.
[[nodiscard]] Marks WarningsOf(const MapFile& file);

}  // namespace corvane
