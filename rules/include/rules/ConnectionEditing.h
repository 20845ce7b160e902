// The connections of a map: listed, added, deleted, given another arrow. Each operation works on
// one direction of one pair of map slots and leaves the other direction and the BTD files alone.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// Copies of the rows of the maps that `fromMap` connects to, in ascending order of map slot.
[[nodiscard]] std::vector<std::string> ConnectionRows(int fromMap);

/// True while a map with so many connection rows may get one more.
[[nodiscard]] bool CanAddConnection(std::int16_t rowCount);

/// Connects the maps by arrow 0; False, and nothing changes, if they are the same map.
[[nodiscard]] bool AddConnection(int fromMap, int toMap);

/// The question before a connection is deleted, in which the maps are named by their rows.
[[nodiscard]] std::string ConnectionDeletePrompt(std::string_view mapRow,
                                                 std::string_view connectionRow);

void DeleteConnection(int fromMap, int toMap);

/// Gives a connection its arrow and marks the tables as changed, even if it is the arrow it had.
void AssignArrow(int fromMap, int toMap, int arrow);

}  // namespace corvane
