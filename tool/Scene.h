// The places, roads and names to draw, computed from the tables of a layer. Every place is on the
// sheet, whatever the numbers in the tables.
#pragma once

#include <string>
#include <vector>

#include "tool/Layer.h"

namespace corvane {

// The game's screen, and the margin of the sheet around it.
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
  BothWays,  // with an exit in its first map
  OneWay,    // without a connection back
  NoExit,    // a connection without an exit
  Missing,   // an exit without a connection
};

struct Road {
  int From = 0;
  int To = 0;
  int Arrow = -1;  // the value of the cell
  RoadKind Kind = RoadKind::BothWays;
  bool HeadAtBothEnds = false;  // represents both directions
  bool operator==(const Road&) const = default;
};

struct SceneTile {
  int Map = 0;
  std::string Row;   // of the catalogue; empty for a slot without a row
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
  std::vector<SceneTile> Tiles;    // slots that have a row, a tile or a road
  std::vector<SceneArrow> Arrows;  // slots that have a place or a use
  std::vector<Road> Roads;
};

[[nodiscard]] Scene MakeScene(const Layer& layer);

/// The position of a rectangle or a point of the tables on the sheet.
[[nodiscard]] Box BoxOf(const StrRect& rect);
[[nodiscard]] Point PointOf(const Hotspot& hotspot);

}  // namespace corvane
