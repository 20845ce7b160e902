#include "rules/ConsistencyCheck.h"

#include <charconv>
#include <iterator>
#include <string_view>

#include "data/MapCatalogue.h"
#include "data/StrategicTables.h"

namespace corvane {
namespace {

constexpr std::int32_t MaxX = 800;
constexpr std::int32_t MaxY = 600;

constexpr std::size_t UsualMaxLength = std::size_t{64} << 10;  // bytes; fits 554 findings

void Add(std::string& findings, std::string_view piece) { findings += piece; }

void Add(std::string& findings, std::int32_t number) {
  char digits[12];
  findings.append(digits, std::to_chars(digits, std::end(digits), number).ptr);
}

template <class... Pieces>
void Append(std::string& findings, const Pieces&... pieces) {
  if (findings.empty()) findings.reserve(UsualMaxLength);
  Add(findings, "\r\n");
  (Add(findings, pieces), ...);
}

bool PositionFits(std::int32_t x, std::int32_t y) {
  return x >= 0 && x <= MaxX && y >= 0 && y <= MaxY;
}

bool SizeFits(const StrRect& rect) { return rect.Width >= 1 && rect.Height >= 1; }

bool HasExitTo(int map, int destination) {
  for (int vl = 0; vl < VLSlotCount; ++vl) {
    if (VLDest(map, vl) == destination) return true;
  }
  return false;
}

// A destination that names no map slot reads as a connection that is missing.
void CheckExit(std::string& findings, int map, int vl) {
  const std::int32_t to = VLDest(map, vl);
  if (to == OffMap || to == NotAnExit) return;
  if (MapConnections(map, to) == NoConnection) {
    Append(findings, "No STRARROW defined for BTD link from ", MapRow(map), " to map ", MapRow(to),
           " via VL", vl);
  } else if (MapConnections(to, map) == NoConnection) {
    Append(findings, "No reciprocating STRARROW defined for link from ", map, " to map ", to);
  } else if (!HasExitTo(to, map)) {
    Append(findings, "No reciprocating BTD link defined for connection from map ", MapRow(map),
           " to map ", MapRow(to));
  }
}

void CheckTile(std::string& findings, int map) {
  const Hotspot& hotspot = MapHotspots[map];
  const StrRect& tile = StrMap[map];
  if (!PositionFits(hotspot.CenterX, hotspot.CenterY)) {
    Append(findings, "Invalid hotspot coordinates for STRMAP ", map);
  } else if (!PositionFits(tile.Left, tile.Top)) {
    Append(findings, "Invalid tile coordinates for STRMAP ", map);
  } else if (!SizeFits(tile)) {
    Append(findings, "Invalid size for STRMAP ", map);
  }
}

void CheckArrow(std::string& findings, int arrow) {
  const StrRect& rect = StrArrow[arrow];
  if (!PositionFits(rect.Left, rect.Top)) {
    Append(findings, "Invalid coordinates for STRARROW ", arrow);
  } else if (!SizeFits(rect)) {
    Append(findings, "Invalid size for STRARROW ", arrow);
  }
}

}  // namespace

std::string CheckTables() {
  std::string findings;
  for (int map = 0; map < MapSlotCount; ++map) {
    for (int vl = 0; vl < VLSlotCount; ++vl) CheckExit(findings, map, vl);
    CheckTile(findings, map);
  }
  for (int arrow = 0; arrow < ArrowSlotCount; ++arrow) CheckArrow(findings, arrow);
  return findings;
}

}  // namespace corvane
