// Lists, adds and deletes the connections of a map and assigns their arrows. Each operation changes
// one direction of one pair of map slots, never the other direction or a BTD file. Only AssignArrow
// marks the tables as changed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

/// The rows of the maps to which `fromMap` connects, in order of map slot.
[[nodiscard]] std::vector<std::string> ConnectionRows(int fromMap);

/// True if a map with `rowCount` connection rows may get another.
[[nodiscard]] bool CanAddConnection(std::int16_t rowCount);

/// Connects the maps with arrow 0, even if another arrow already connects them. Returns false and
/// changes nothing if both are the same map.
[[nodiscard]] bool AddConnection(int fromMap, int toMap);

/// The question to ask before a connection is deleted. Names the maps by their rows.
[[nodiscard]] std::string ConnectionDeletePrompt(std::string_view mapRow,
                                                 std::string_view connectionRow);

/// Deletes a connection, if it exists.
void DeleteConnection(int fromMap, int toMap);

/// Assigns an arrow to a connection. Marks the tables as changed even if it is the same arrow.
void AssignArrow(int fromMap, int toMap, int arrow);

}  // namespace corvane
