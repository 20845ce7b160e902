#include "Scene.h"

#include <algorithm>

#include "data/MapCatalogue.h"
#include "tool/Printable.h"

namespace corvane {
namespace {

int OnSheet(std::int64_t place, int length) {
  return static_cast<int>(
      std::clamp<std::int64_t>(place, 2 - SheetMargin, length + SheetMargin - 2));
}

struct Interval {
  int First, Last;
};

// An interval of one axis, clamped to the sheet and widened to a visible minimum.
Interval IntervalOnSheet(std::int64_t start, std::int64_t size, int length) {
  constexpr int Min = 4;
  const int first = OnSheet(start, length);
  const int last = OnSheet(start + std::max<std::int64_t>(size, 0), length);
  if (last - first >= Min) return {first, last};
  const int widened = std::max(first, 2 - SheetMargin + Min);
  return {widened - Min, widened};
}

// A slot without a file has no exits, although its zeros read as ten exits to map 0.
bool HasFile(const Layer& layer, int map) {
  return static_cast<std::size_t>(map) < layer.Rows.size() ||
         std::ranges::any_of(layer.Files,
                             [map](const MapFile& file) { return file.Header.MapIndex == map; });
}

bool HasExit(const Layer& layer, int from, int to) {
  return HasFile(layer, from) && HasExitTo(layer.Destinations, from, to);
}

RoadKind KindOf(const Layer& layer, int from, int to) {
  if (!HasExit(layer, from, to)) return RoadKind::NoExit;
  return layer.Connections(to, from) == NoConnection ? RoadKind::OneWay : RoadKind::BothWays;
}

void AddConnection(std::vector<Road>& roads, const Layer& layer, int from, int to) {
  const std::int32_t arrow = layer.Connections(from, to);
  const RoadKind kind = KindOf(layer, from, to);
  const bool alike =
      from != to && layer.Connections(to, from) == arrow && kind == KindOf(layer, to, from);
  if (alike && from > to) return;  // drawn with the opposite direction
  roads.push_back({from, to, arrow, kind, alike});
}

void AddRoads(std::vector<Road>& roads, const Layer& layer, int from) {
  for (int to = 0; to < MapSlotCount; ++to) {
    if (layer.Connections(from, to) != NoConnection) {
      AddConnection(roads, layer, from, to);
    } else if (HasExit(layer, from, to)) {
      roads.push_back({from, to, -1, RoadKind::Missing, false});
    }
  }
}

std::string WithoutExtension(const std::string& name) { return name.substr(0, name.rfind('.')); }

SceneTile TileOf(const Layer& layer, int map) {
  SceneTile tile;
  tile.Map = map;
  const auto row = static_cast<std::size_t>(map);
  if (row < layer.Rows.size()) {
    tile.Row = Printable(layer.Rows[row]);
    tile.Name = Printable(WithoutExtension(RowFileName(layer.Rows[row])));
  }
  tile.Place = BoxOf(layer.Tiles[map]);
  tile.Spot = PointOf(layer.Hotspots[map]);
  for (int vl = 0; vl < VLSlotCount && HasFile(layer, map); ++vl) {
    if (layer.Destinations(map, vl) == OffMap) tile.OffMapExits.push_back(vl);
  }
  return tile;
}

bool HasRoad(const std::vector<Road>& roads, int map) {
  return std::ranges::any_of(
      roads, [map](const Road& road) { return road.From == map || road.To == map; });
}

bool HasPlace(const StrRect& rect) {
  return rect.Left != 0 || rect.Top != 0 || rect.Width != 0 || rect.Height != 0;
}

bool IsUsed(const std::vector<Road>& roads, int arrow) {
  return std::ranges::any_of(roads, [arrow](const Road& road) { return road.Arrow == arrow; });
}

}  // namespace

bool Overlap(const Box& a, const Box& b) {
  return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}

Box BoxOf(const StrRect& rect) {
  const auto [left, right] = IntervalOnSheet(rect.Left, rect.Width, ScreenWidth);
  const auto [top, bottom] = IntervalOnSheet(rect.Top, rect.Height, ScreenHeight);
  return {left, top, right, bottom};
}

Point PointOf(const Hotspot& hotspot) {
  return {OnSheet(hotspot.CenterX, ScreenWidth), OnSheet(hotspot.CenterY, ScreenHeight)};
}

Scene MakeScene(const Layer& layer) {
  Scene scene;
  for (int from = 0; from < MapSlotCount; ++from) AddRoads(scene.Roads, layer, from);
  for (int map = 0; map < MapSlotCount; ++map) {
    const bool hasRow = static_cast<std::size_t>(map) < layer.Rows.size();
    if (hasRow || HasPlace(layer.Tiles[map]) || HasRoad(scene.Roads, map)) {
      scene.Tiles.push_back(TileOf(layer, map));
    }
  }
  for (int arrow = 0; arrow < ArrowSlotCount; ++arrow) {
    const StrRect& rect = layer.Arrows[arrow];
    if (HasPlace(rect) || IsUsed(scene.Roads, arrow)) scene.Arrows.push_back({arrow, BoxOf(rect)});
  }
  return scene;
}

}  // namespace corvane
