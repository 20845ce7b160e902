// Which of the map slots are in use: a slot added, a slot cleared.
#pragma once

#include "base/Result.h"

namespace corvane {

/// Adds a row without a name for the next map slot; False at the limit. Changes no table.
[[nodiscard]] bool AddMapSlot();

/// Clears a map slot: its records, its connections in both directions, the exits of other maps that
/// lead to it, and what the program knows of its BTD file, which stays in place with its map
/// number so that no other map changes position. A file that cannot be cleared fails it all.
[[nodiscard]] Result<> DeleteMapSlot(int map);

}  // namespace corvane
