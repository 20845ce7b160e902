#include "rules/ConnectionEditing.h"

#include "data/MapCatalogue.h"
#include "data/StrategicTables.h"

namespace corvane {
namespace {

constexpr std::int16_t MaxConnectionRows = 9;  // limit for adding; loaded tables may have more
constexpr std::int32_t ArrowOfNewConnection = 0;

}  // namespace

std::vector<std::string> ConnectionRows(int fromMap) {
  std::vector<std::string> rows;
  for (int to = 0; to < MapSlotCount; ++to) {
    if (MapConnections(fromMap, to) != NoConnection) rows.push_back(MapRow(to));
  }
  return rows;
}

bool CanAddConnection(std::int16_t rowCount) { return rowCount < MaxConnectionRows; }

bool AddConnection(int fromMap, int toMap) {
  if (fromMap == toMap) return false;
  MapConnections(fromMap, toMap) = ArrowOfNewConnection;
  return true;
}

std::string ConnectionDeletePrompt(std::string_view mapRow, std::string_view connectionRow) {
  std::string prompt = "Are you sure you want to delete the connection from map ";
  prompt.append(mapRow).append(" to map ").append(connectionRow);
  return prompt +
         "?  Note: You must manually delete the connection in the opposite direction, if one "
         "exists. The victory location that represents this connection will not be deleted. Edit "
         "the BTD file to correct the victory location.";
}

void DeleteConnection(int fromMap, int toMap) { MapConnections(fromMap, toMap) = NoConnection; }

void AssignArrow(int fromMap, int toMap, int arrow) {
  TablesDirty = true;
  MapConnections(fromMap, toMap) = arrow;
}

}  // namespace corvane
