// The earlier layer of a comparison: draws in outline, at its old position, what has
// changed.
#include <algorithm>

#include "PictureParts.h"

namespace corvane {
namespace {

Point Middle(const Box& box) { return {(box.Left + box.Right) / 2, (box.Top + box.Bottom) / 2}; }

void DrawOldBox(Markup& out, const StrRect& was, const StrRect& is, const std::string& what) {
  const Box box = BoxOf(was);
  out.Open("g", {});
  out.Leaf("title", {}, what + ", previous position");
  DrawBox(out, box);
  out.Leaf("path", {{"d", "M" + FormatPoint(Middle(box)) + "L" + FormatPoint(Middle(BoxOf(is)))}});
  out.Close();
}

bool SamePlace(const StrRect& a, const StrRect& b) {
  return a.Left == b.Left && a.Top == b.Top && a.Width == b.Width && a.Height == b.Height;
}

void DrawOldSpot(Markup& out, Point was, const std::string& title) {
  out.Open("circle", {{"cx", was.X}, {"cy", was.Y}, {"r", 4}});
  out.Leaf("title", {}, "Hotspot of " + title + ", previous position");
  out.Close();
}

void DrawOldTiles(Sheet& sheet, const Scene& before) {
  const Layer& was = *sheet.Input.Before;
  const Layer& is = *sheet.Input.Now;
  for (const SceneTile& tile : before.Tiles) {
    const int map = tile.Map;
    const std::string title = "map " + MapTitle(before, map);
    if (!SamePlace(was.Tiles[map], is.Tiles[map])) {
      DrawOldBox(sheet.Out, was.Tiles[map], is.Tiles[map], "Tile of " + title);
    }
    if (was.Hotspots[map] != is.Hotspots[map]) DrawOldSpot(sheet.Out, tile.Spot, title);
  }
}

void DrawOldArrows(Sheet& sheet, const Scene& before) {
  const Layer& was = *sheet.Input.Before;
  const Layer& is = *sheet.Input.Now;
  for (const SceneArrow& each : before.Arrows) {
    const int arrow = each.Arrow;
    if (SamePlace(was.Arrows[arrow], is.Arrows[arrow])) continue;
    DrawOldBox(sheet.Out, was.Arrows[arrow], is.Arrows[arrow], "Arrow " + std::to_string(arrow));
  }
}

bool Connects(const std::vector<Road>& roads, int from, int to) {
  return std::ranges::any_of(roads, [from, to](const Road& road) {
    if (road.Kind == RoadKind::Missing) return false;
    return (road.From == from && road.To == to) ||
           (road.HeadAtBothEnds && road.From == to && road.To == from);
  });
}

bool IsLost(const std::vector<Road>& now, const Road& road) {
  return !Connects(now, road.From, road.To) ||
         (road.HeadAtBothEnds && !Connects(now, road.To, road.From));
}

void DrawLostRoads(Sheet& sheet, const Scene& before) {
  for (const Road& road : before.Roads) {
    if (road.Kind == RoadKind::Missing || !IsLost(sheet.Now.Roads, road)) continue;
    sheet.Out.Open("path", {{"class", "gone"}, {"d", RoadPath(before, road)}});
    sheet.Out.Leaf(
        "title", {},
        MapTitle(before, road.From) + " to " + MapTitle(before, road.To) + ", no longer connected");
    sheet.Out.Close();
  }
}

}  // namespace

void DrawBefore(Sheet& sheet) {
  if (!sheet.Input.Before) return;
  const Scene before = MakeScene(*sheet.Input.Before);
  sheet.Out.Open("g", {{"class", "old"}});
  DrawLostRoads(sheet, before);
  DrawOldTiles(sheet, before);
  DrawOldArrows(sheet, before);
  sheet.Out.Close();
}

}  // namespace corvane
