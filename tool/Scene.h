// What a layer looks like: the tables read as places, roads and names, ready to be drawn. Every
// place lies on the sheet, however wild the numbers that it comes from.
#pragma once

#include <string>
#include <vector>

#include "tool/Layer.h"

namespace corvane {

// The screen of the game, and how far around it the sheet shows what reaches beyond.
constexpr int ScreenWidth = 800;
constexpr int ScreenHeight = 600;
constexpr int SheetMargin = 36;

struct Point {
  int X = 0;
  int Y = 0;
  bool operator==(const Point&) const = default;
};

struct Box {
  int Left = 0;
  int Top = 0;
  int Right = 0;
  int Bottom = 0;
  bool operator==(const Box&) const = default;
};

[[nodiscard]] bool Overlap(const Box& a, const Box& b);

enum class RoadKind {
  BothWays,  // and an exit of the map it starts from leads along
  OneWay,    // no connection leads back
  NoExit,    // a connection along which no exit leads
  Missing,   // an exit along which no connection leads
};

struct Road {
  int From = 0;
  int To = 0;
  int Arrow = -1;  // as the cell holds it
  RoadKind Kind = RoadKind::BothWays;
  bool HeadAtBothEnds = false;  // it stands for its way back, too
  bool operator==(const Road&) const = default;
};

struct SceneTile {
  int Map = 0;
  std::string Row;   // whole, as the catalogue has it; empty for a slot without a row
  std::string Name;  // of the file, without its extension
  Box Place;
  Point Spot;
  std::vector<int> OffMapExits;  // slots of victory locations
};

struct SceneArrow {
  int Arrow = 0;
  Box Place;
};

struct Scene {
  std::vector<SceneTile> Tiles;    // the slots that have a row, a tile or a road
  std::vector<SceneArrow> Arrows;  // those that have a size or are used
  std::vector<Road> Roads;
};

[[nodiscard]] Scene MakeScene(const Layer& layer);

/// Where a rectangle of the tables, or a point of them, lies on the sheet.
[[nodiscard]] Box BoxOf(const StrRect& rect);
[[nodiscard]] Point PointOf(const Hotspot& hotspot);

}  // namespace corvane
