#include "rules/MapSlots.h"

#include <string>

#include "data/MapCatalogue.h"
#include "data/StrategicTables.h"

namespace corvane {
namespace {

constexpr std::size_t MaxRowsByAdding = 41;  // below the number of map slots

Result<> ClearBtdFile(const std::string& row) {
  const std::string name = RowFileName(row);
  const std::string path = BtdPath(name, name);
  if (name.empty() || !BtdExists(path)) return {};
  return WriteBtd(path, static_cast<std::uint8_t>(RowMapIndex(row)), {}, {});
}

void ClearTile(int map) {
  const std::int32_t word0 = StrMap[map].Word0;
  StrMap[map] = {.Word0 = word0};
  MapHotspots[map] = {};
}

void ClearLinks(int map) {
  for (int vl = 0; vl < VLSlotCount; ++vl) VLDest(map, vl) = NotAnExit;
  for (int other = 0; other < MapSlotCount; ++other) {
    MapConnections(map, other) = NoConnection;
    MapConnections(other, map) = NoConnection;
    for (int vl = 0; vl < VLSlotCount; ++vl) {
      if (VLDest(other, vl) == map) VLDest(other, vl) = OffMap;
    }
  }
}

}  // namespace

bool AddMapSlot() {
  if (MapRows.size() >= MaxRowsByAdding) return false;
  InsertMapRow(ThreeDigits(static_cast<int>(MapRows.size())));
  return true;
}

Result<> DeleteMapSlot(int map) {
  if (!IsMapSlot(map)) return {};
  Result<> cleared = ClearBtdFile(MapRow(map));
  if (!cleared.Done()) return cleared;
  ClearTile(map);
  ClearLinks(map);
  ReplaceMapRow(map, ThreeDigits(map).append(ClearedRowEnd));
  return cleared;
}

}  // namespace corvane
