// Adds and clears map slots.
#pragma once

#include "base/Result.h"

namespace corvane {

/// Adds a row without a name for the next map slot. Returns false at the limit. Changes no table.
[[nodiscard]] bool AddMapSlot();

/// Clears a map slot: its records, its connections in both directions, the exits of other maps to
/// it, and the known part of its BTD file. The file and its map number remain, so that no other map
/// changes position. If the file cannot be cleared, fails and changes nothing.
[[nodiscard]] Result<> DeleteMapSlot(int map);

}  // namespace corvane
