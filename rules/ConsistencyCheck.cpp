#include "rules/ConsistencyCheck.h"

#include <charconv>
#include <iterator>
#include <string_view>
#include <utility>

#include "data/MapCatalogue.h"
#include "data/StrategicTables.h"

namespace corvane {
namespace {

constexpr std::int32_t MaxX = 800;
constexpr std::int32_t MaxY = 600;

constexpr std::size_t ReservedLength = std::size_t{64} << 10;  // bytes; enough for 554 findings

constexpr std::string_view LineBreak = "\r\n";

void Add(std::string& text, std::string_view piece) { text += piece; }

void Add(std::string& text, std::int32_t number) {
  char digits[12];
  text.append(digits, std::to_chars(digits, std::end(digits), number).ptr);
}

/// Collects the findings, and their places only if `Lines` is set.
struct Report {
  std::string Text{};
  std::vector<Finding>* Lines = nullptr;

  template <class... Pieces>
  void AddForMap(int map, const Pieces&... pieces) {
    Append({.Map = map}, pieces...);
  }
  template <class... Pieces>
  void AddForArrow(int arrow, const Pieces&... pieces) {
    Append({.Arrow = arrow}, pieces...);
  }

 private:
  template <class... Pieces>
  void Append(Finding finding, const Pieces&... pieces) {
    if (Text.empty()) Text.reserve(ReservedLength);
    Add(Text, LineBreak);
    finding.Start = Text.size();
    (Add(Text, pieces), ...);
    finding.Length = Text.size() - finding.Start;
    if (Lines != nullptr) Lines->push_back(finding);
  }
};

bool PositionFits(std::int32_t x, std::int32_t y) {
  return x >= 0 && x <= MaxX && y >= 0 && y <= MaxY;
}

bool SizeFits(const StrRect& rect) { return rect.Width >= 1 && rect.Height >= 1; }

// A destination that names no map slot reads as a missing connection.
void CheckExit(Report& report, int map, int vl) {
  const std::int32_t to = VLDest(map, vl);
  if (to == OffMap || to == NotAnExit) return;
  if (MapConnections(map, to) == NoConnection) {
    report.AddForMap(map, "No STRARROW defined for BTD link from ", MapRow(map), " to map ",
                     MapRow(to), " via VL", vl);
  } else if (MapConnections(to, map) == NoConnection) {
    report.AddForMap(map, "No reciprocating STRARROW defined for link from ", map, " to map ", to);
  } else if (!HasExitTo(VLDest, to, map)) {
    report.AddForMap(map, "No reciprocating BTD link defined for connection from map ", MapRow(map),
                     " to map ", MapRow(to));
  }
}

void CheckTile(Report& report, int map) {
  const Hotspot& hotspot = MapHotspots[map];
  const StrRect& tile = StrMap[map];
  if (!PositionFits(hotspot.CenterX, hotspot.CenterY)) {
    report.AddForMap(map, "Invalid hotspot coordinates for STRMAP ", map);
  } else if (!PositionFits(tile.Left, tile.Top)) {
    report.AddForMap(map, "Invalid tile coordinates for STRMAP ", map);
  } else if (!SizeFits(tile)) {
    report.AddForMap(map, "Invalid size for STRMAP ", map);
  }
}

void CheckArrow(Report& report, int arrow) {
  const StrRect& rect = StrArrow[arrow];
  if (!PositionFits(rect.Left, rect.Top)) {
    report.AddForArrow(arrow, "Invalid coordinates for STRARROW ", arrow);
  } else if (!SizeFits(rect)) {
    report.AddForArrow(arrow, "Invalid size for STRARROW ", arrow);
  }
}

void Check(Report& report) {
  for (int map = 0; map < MapSlotCount; ++map) {
    for (int vl = 0; vl < VLSlotCount; ++vl) CheckExit(report, map, vl);
    CheckTile(report, map);
  }
  for (int arrow = 0; arrow < ArrowSlotCount; ++arrow) CheckArrow(report, arrow);
}

}  // namespace

std::string CheckTables() {
  Report report;
  Check(report);
  return std::move(report.Text);
}

Findings LocateFindings() {
  Findings findings;
  Report report{.Lines = &findings.Lines};
  Check(report);
  findings.Text = std::move(report.Text);
  return findings;
}

}  // namespace corvane
