#include "tool/Picture.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>

#include "PageParts.h"
#include "PictureParts.h"
#include "tool/Printable.h"

namespace corvane {
namespace {

constexpr int NameSize = 9;    // font size in pixels
constexpr int NumberSize = 8;  // font size of arrow numbers
constexpr int SpotRadius = 3;

constexpr std::array RoadKinds = {RoadKind::Missing, RoadKind::NoExit, RoadKind::OneWay,
                                  RoadKind::BothWays};

std::string HeadName(RoadKind kind) { return "head-" + std::string(KindClass(kind)); }

// The arrowheads end before the hotspot at the end of the road.
void DrawHeads(Markup& out) {
  out.Open("defs");
  for (const RoadKind kind : RoadKinds) {
    out.Open("marker", {{"id", HeadName(kind)},
                        {"class", "head " + std::string(KindClass(kind))},
                        {"viewBox", "0 0 8 8"},
                        {"refX", 12},
                        {"refY", 4},
                        {"markerWidth", 8},
                        {"markerHeight", 8},
                        {"markerUnits", "userSpaceOnUse"},
                        {"orient", "auto-start-reverse"}});
    out.Leaf("path", {{"d", "M0 0.5 8 4 0 7.5z"}});
    out.Close();
  }
  out.Close();
}

std::string Numbers(const StrRect& rect) {
  return "Left " + std::to_string(rect.Left) + ", Top " + std::to_string(rect.Top) + ", Width " +
         std::to_string(rect.Width) + ", Height " + std::to_string(rect.Height);
}

bool IsMarked(const Marks& marks, int map, int arrow) {
  return std::ranges::any_of(marks, [map, arrow](const Mark& mark) {
    return mark.Kind == MarkKind::Finding && mark.Map == map && mark.Arrow == arrow;
  });
}

std::string MarkLines(const Marks& marks, int map, int arrow) {
  std::string lines;
  for (const Mark& mark : marks) {
    if (mark.Map == map && mark.Arrow == arrow) lines += "\n" + Printable(mark.Text);
  }
  return lines;
}

std::string TileTitle(const Sheet& sheet, const SceneTile& tile) {
  const Layer& layer = *sheet.Input.Now;
  const Hotspot& spot = layer.Hotspots[tile.Map];
  return (tile.Row.empty() ? "Map " + std::to_string(tile.Map) + ", without a file" : tile.Row) +
         "\nTile: " + Numbers(layer.Tiles[tile.Map]) +
         "\nHotspot: " + std::to_string(spot.CenterX) + ", " + std::to_string(spot.CenterY) +
         MarkLines(sheet.Input.Found, tile.Map, -1);
}

void DrawTiles(Sheet& sheet) {
  sheet.Out.Open("g", {{"class", "tiles"}});
  for (const SceneTile& tile : sheet.Now.Tiles) {
    const bool flawed = IsMarked(sheet.Input.Found, tile.Map, -1);
    sheet.Out.Open("g", {{"id", "map-" + std::to_string(tile.Map)},
                         {"class", flawed ? "tile flawed" : "tile"},
                         {"tabindex", 0},
                         {"role", "graphics-symbol img"},
                         {"aria-label", "Map " + MapTitle(sheet.Now, tile.Map)},
                         {"data-map", tile.Map}});
    sheet.Out.Leaf("title", {}, TileTitle(sheet, tile));
    DrawBox(sheet.Out, tile.Place);
    sheet.Out.Close();
  }
  sheet.Out.Close();
}

std::string UsedBy(const Scene& scene, int arrow) {
  std::string users;
  for (const Road& road : scene.Roads) {
    if (road.Arrow != arrow) continue;
    users += "\n" + MapTitle(scene, road.From) + " to " + MapTitle(scene, road.To);
    if (road.HeadAtBothEnds) users += " and back";
  }
  return users.empty() ? "\nNo connection uses it." : users;
}

void DrawArrows(Sheet& sheet) {
  sheet.Out.Open("g", {{"class", "arrows"}});
  const Layer& layer = *sheet.Input.Now;
  for (const SceneArrow& arrow : sheet.Now.Arrows) {
    const bool flawed = IsMarked(sheet.Input.Found, -1, arrow.Arrow);
    const std::string number = std::to_string(arrow.Arrow);
    sheet.Out.Open("g", {{"id", "arrow-" + number},
                         {"class", flawed ? "arrow flawed" : "arrow"},
                         {"role", "graphics-symbol img"},
                         {"aria-label", "Arrow " + number},
                         {"data-arrow", arrow.Arrow}});
    sheet.Out.Leaf("title", {},
                   "Arrow " + number + ": " + Numbers(layer.Arrows[arrow.Arrow]) +
                       UsedBy(sheet.Now, arrow.Arrow) +
                       MarkLines(sheet.Input.Found, -1, arrow.Arrow));
    DrawBox(sheet.Out, arrow.Place);
    sheet.Out.Close();
  }
  sheet.Out.Close();
}

Point SpotOf(const Scene& scene, int map) {
  const auto tile = std::ranges::find(scene.Tiles, map, &SceneTile::Map);
  return tile == scene.Tiles.end() ? Point{} : tile->Spot;
}

// The control point of a curve through `middle`; both are in half pixels.
Point Bend(Point from, Point to, Point middle) {
  return {2 * middle.X - from.X - to.X, 2 * middle.Y - from.Y - to.Y};
}

std::string FormatHalfPoint(Point halves) {
  return FormatHalves(halves.X) + " " + FormatHalves(halves.Y);
}

// A loop from a map to itself. Its far end, three quarters of the way to the two control points, is
// `middle` (in half pixels).
std::string LoopPath(Point spot, Point middle) {
  constexpr int Wide = 40;
  const Point far{(middle.X - 2 * spot.X) * 4 / 3, (middle.Y - 2 * spot.Y) * 4 / 3};
  return "M" + FormatPoint(spot) + "c" + FormatHalfPoint({far.X - Wide, far.Y}) + " " +
         FormatHalfPoint({far.X + Wide, far.Y}) + " 0 0";
}

bool IsOnSheet(Point halves) {
  return std::abs(halves.X - ScreenWidth) <= ScreenWidth + 2 * SheetMargin &&
         std::abs(halves.Y - ScreenHeight) <= ScreenHeight + 2 * SheetMargin;
}

std::string RoadTitle(const Scene& scene, const Road& road) {
  std::string title = MapTitle(scene, road.From) + " to " + MapTitle(scene, road.To);
  if (road.Kind != RoadKind::Missing) title += ", arrow " + std::to_string(road.Arrow);
  return title + ": " + std::string(KindTitle(road.Kind));
}

void DrawRoad(Sheet& sheet, const Road& road) {
  const std::string head = "url(#" + HeadName(road.Kind) + ")";
  sheet.Out.Open("path", {{"class", "road " + std::string(KindClass(road.Kind))},
                          {"d", RoadPath(sheet.Now, road)},
                          {"marker-start", road.HeadAtBothEnds ? head : "none"},
                          {"marker-end", head},
                          {"data-from", road.From},
                          {"data-to", road.To},
                          {"data-by", road.Arrow}});
  sheet.Out.Leaf("title", {}, RoadTitle(sheet.Now, road));
  sheet.Out.Close();
}

void DrawRoads(Sheet& sheet) {
  sheet.Out.Open("g", {{"class", "roads"}});
  for (const RoadKind kind : RoadKinds) {
    for (const Road& road : sheet.Now.Roads) {
      if (road.Kind == kind) DrawRoad(sheet, road);
    }
  }
  sheet.Out.Close();
}

void DrawHotspots(Sheet& sheet) {
  sheet.Out.Open("g", {{"class", "spots"}});
  for (const SceneTile& tile : sheet.Now.Tiles) {
    const Point spot = tile.Spot;
    sheet.Out.Leaf("circle", {{"class", "spot"},
                              {"cx", spot.X},
                              {"cy", spot.Y},
                              {"r", SpotRadius},
                              {"data-map", tile.Map}});
    sheet.Labels.Reserve(
        {spot.X - SpotRadius, spot.Y - SpotRadius, spot.X + SpotRadius, spot.Y + SpotRadius});
  }
  sheet.Out.Close();
}

// A triangle at the edge of the tile nearest to an edge of the screen, pointing to that edge.
std::string OffMapPath(const Box& tile, int place) {
  const int x = (tile.Left + tile.Right) / 2;
  const int y = (tile.Top + tile.Bottom) / 2;
  const int nearest = std::min({x, ScreenWidth - x, y, ScreenHeight - y});
  const int aside = 11 * place;
  if (nearest == x) return "M" + FormatPoint({tile.Left, y - 5 + aside}) + "v10l-9-5z";
  if (nearest == ScreenWidth - x)
    return "M" + FormatPoint({tile.Right, y - 5 + aside}) + "v10l9-5z";
  if (nearest == y) return "M" + FormatPoint({x - 5 + aside, tile.Top}) + "h10l-5-9z";
  return "M" + FormatPoint({x - 5 + aside, tile.Bottom}) + "h10l-5 9z";
}

void DrawOffMapExits(Sheet& sheet) {
  sheet.Out.Open("g", {{"class", "off-map-exits"}});
  for (const SceneTile& tile : sheet.Now.Tiles) {
    for (int place = 0; place < static_cast<int>(tile.OffMapExits.size()); ++place) {
      const int vl = tile.OffMapExits[static_cast<std::size_t>(place)];
      sheet.Out.Open(
          "path",
          {{"class", "off-map"}, {"d", OffMapPath(tile.Place, place)}, {"data-map", tile.Map}});
      sheet.Out.Leaf("title", {},
                     MapTitle(sheet.Now, tile.Map) + ": exit off the map, VL" + std::to_string(vl));
      sheet.Out.Close();
    }
  }
  sheet.Out.Close();
}

void DrawLabel(Markup& out, std::string_view style, const PlacedLabel& label,
               const Attribute& owner) {
  out.Leaf("text",
           {{"class", std::string(style)}, {"x", label.Start.X}, {"y", label.Start.Y}, owner},
           label.Text);
}

// Inside the tile if possible, else next to it; complete if possible, else shortened, else only
// the number.
std::optional<PlacedLabel> PlaceName(Sheet& sheet, const SceneTile& tile) {
  const Box& box = tile.Place;
  const Point corners[] = {{box.Left + 3, box.Top + 2},
                           {box.Left + 3, box.Bottom - NameSize - 3},
                           {box.Left + 3, (box.Top + box.Bottom - NameSize) / 2},
                           {box.Left, box.Top - NameSize - 2},
                           {box.Left, box.Bottom + 1},
                           {box.Right + 2, box.Top + 2}};
  const std::string whole = MapTitle(sheet.Now, tile.Map);
  const int width = std::max((box.Right - box.Left) * 5 / 4, 56);
  for (const std::string& text :
       {Shortened(whole, NameSize, width), Shortened(whole, NameSize, width / 2),
        std::to_string(tile.Map)}) {
    if (text.empty()) continue;
    if (auto label = sheet.Labels.Place(text, NameSize, corners)) return label;
  }
  return std::nullopt;
}

std::optional<PlacedLabel> PlaceNumber(Sheet& sheet, const SceneArrow& arrow) {
  const std::string number = std::to_string(arrow.Arrow);
  const Box& box = arrow.Place;
  const int width = TextWidth(number, NumberSize);
  const int middle = (box.Left + box.Right - width) / 2;
  const Point corners[] = {{middle, (box.Top + box.Bottom - NumberSize) / 2},
                           {box.Left + 1, box.Top + 1},
                           {box.Right - width - 1, box.Bottom - NumberSize - 1},
                           {box.Right + 1, box.Top},
                           {box.Left - width - 1, box.Top},
                           {middle, box.Top - NumberSize - 1},
                           {middle, box.Bottom}};
  return sheet.Labels.Place(number, NumberSize, corners);
}

void DrawLabels(Sheet& sheet) {
  sheet.Out.Open("g", {{"class", "labels"}, {"aria-hidden", "true"}});
  for (const SceneTile& tile : sheet.Now.Tiles) {
    if (const auto label = PlaceName(sheet, tile)) {
      DrawLabel(sheet.Out, "name", *label, {"data-map", tile.Map});
    }
  }
  for (const SceneArrow& arrow : sheet.Now.Arrows) {
    if (const auto label = PlaceNumber(sheet, arrow)) {
      DrawLabel(sheet.Out, "number", *label, {"data-arrow", arrow.Arrow});
    }
  }
  sheet.Out.Close();
}

void DrawHeading(Sheet& sheet) {
  constexpr int Size = 16;
  sheet.Out.Open("g", {{"class", "heading"}});
  sheet.Out.Leaf("text", {{"x", -SheetMargin}, {"y", HeadingTop + Size}, {"class", "title"}},
                 Shortened(PictureTitle(sheet.Input), Size, ScreenWidth));
  sheet.Out.Leaf("text", {{"x", -SheetMargin}, {"y", HeadingTop + 2 * Size}, {"class", "summary"}},
                 Summary(sheet.Input, sheet.Now));
  sheet.Out.Close();
}

void OpenPicture(Sheet& sheet, Point end) {
  const int left = -SheetMargin - 8;
  const int width = end.X - left;
  const int height = end.Y - HeadingTop;
  const std::string whole = FormatPoint({left, HeadingTop}) + " " + FormatPoint({width, height});
  const std::string home = FormatPoint({left, -SheetMargin}) + " " +
                           FormatPoint({ScreenWidth - 2 * left, LegendBottom + SheetMargin});
  sheet.Out.Open("svg", {{"xmlns", "http://www.w3.org/2000/svg"},
                         {"class", "layer"},
                         {"viewBox", whole},
                         {"data-whole", whole},
                         {"data-home", home},
                         {"width", width},
                         {"height", height},
                         {"role", "graphics-document document"},
                         {"aria-labelledby", "picture-title picture-text"}});
  sheet.Out.Leaf("title", {{"id", "picture-title"}}, PictureTitle(sheet.Input));
  sheet.Out.Leaf("desc", {{"id", "picture-text"}}, Summary(sheet.Input, sheet.Now) + ".");
  sheet.Out.Raw("<style>");
  sheet.Out.Raw(picture_css);
  sheet.Out.Raw("</style>\n");
  DrawHeads(sheet.Out);
  sheet.Out.Leaf(
      "rect",
      {{"class", "paper"}, {"x", left}, {"y", HeadingTop}, {"width", width}, {"height", height}});
  sheet.Out.Leaf(
      "rect",
      {{"class", "screen"}, {"x", 0}, {"y", 0}, {"width", ScreenWidth}, {"height", ScreenHeight}});
}

}  // namespace

std::string PictureTitle(const Picture& picture) {
  const std::string title = "Strategic layer of " + Printable(picture.Name);
  return picture.Before ? title + ", compared with " + Printable(picture.BeforeName) : title;
}

std::string MapTitle(const Scene& scene, int map) {
  const std::string number = std::to_string(map);
  const auto tile = std::ranges::find(scene.Tiles, map, &SceneTile::Map);
  return tile == scene.Tiles.end() || tile->Name.empty() ? number : number + " " + tile->Name;
}

std::string RoadPath(const Scene& scene, const Road& road) {
  const Point from = SpotOf(scene, road.From);
  const Point to = SpotOf(scene, road.To);
  const auto arrow = std::ranges::find(scene.Arrows, road.Arrow, &SceneArrow::Arrow);
  const bool hasArrow = arrow != scene.Arrows.end();
  Point middle{from.X + to.X, from.Y + to.Y - (road.From == road.To ? 60 : 0)};
  if (hasArrow) {
    const Box& place = arrow->Place;
    middle = {place.Left + place.Right, place.Top + place.Bottom};
  }
  if (road.From == road.To) return LoopPath(from, middle);
  const std::string start = "M" + FormatPoint(from);
  if (!hasArrow) return start + "L" + FormatPoint(to);
  const Point bend = Bend(from, to, middle);
  // Instead of a curve that leaves the sheet, two lines meet at the arrow.
  if (!IsOnSheet(bend)) return start + "L" + FormatHalfPoint(middle) + "L" + FormatPoint(to);
  return start + "Q" + FormatHalfPoint(bend) + " " + FormatPoint(to);
}

std::string FormatPoint(Point point) {
  return std::to_string(point.X) + " " + std::to_string(point.Y);
}

void DrawBox(Markup& out, const Box& box) {
  out.Leaf("rect", {{"x", box.Left},
                    {"y", box.Top},
                    {"width", box.Right - box.Left},
                    {"height", box.Bottom - box.Top}});
}

std::string DrawSvg(const Picture& picture) {
  Sheet sheet{picture, MakeScene(*picture.Now), {}, {}};
  OpenPicture(sheet, ListEnd(picture.Found));
  DrawHeading(sheet);
  DrawTiles(sheet);
  DrawArrows(sheet);
  DrawBefore(sheet);
  DrawRoads(sheet);
  DrawHotspots(sheet);
  DrawOffMapExits(sheet);
  DrawBadges(sheet);
  DrawLabels(sheet);
  DrawLegend(sheet);
  DrawList(sheet);
  return sheet.Out.Take();
}

}  // namespace corvane
