// The HTML page: the SVG and, beside it, the maps, their data, findings and warnings.
#include <array>

#include "PageParts.h"
#include "PictureParts.h"
#include "Words.h"
#include "data/MapCatalogue.h"
#include "tool/Printable.h"

namespace corvane {
namespace {

constexpr int ReloadPause = 1500;  // milliseconds between reloads

std::string Policy() {
  return "default-src 'none'; script-src '" + std::string(page_js_hash) + "'; style-src '" +
         std::string(page_css_hash) + "' '" + std::string(picture_css_hash) +
         "'; base-uri 'none'; form-action 'none'";
}

void WriteHead(Markup& out, const Picture& picture) {
  out.Open("head");
  out.Leaf("meta", {{"charset", "utf-8"}});
  out.Leaf("meta", {{"http-equiv", "Content-Security-Policy"}, {"content", Policy()}});
  out.Leaf("meta", {{"name", "viewport"}, {"content", "width=device-width"}});
  out.Leaf("title", {}, PictureTitle(picture));
  out.Raw("<style>");
  out.Raw(page_css);
  out.Raw("</style>\n");
  out.Close();
}

void WriteButton(Markup& out, const std::string& id, const std::string& label,
                 std::string_view text) {
  out.Leaf("button", {{"id", id}, {"type", "button"}, {"aria-label", label}, {"title", label}},
           text);
}

void WriteView(Markup& out, const Picture& picture) {
  out.Open("main");
  out.Raw(DrawSvg(picture));
  out.Open("div", {{"class", "tools"}});
  WriteButton(out, "nearer", "Zoom in", "+");
  WriteButton(out, "farther", "Zoom out", "\u2212");
  WriteButton(out, "whole", "Show the whole map", "Whole map");
  out.Close();
  out.Close();
}

void WriteMapList(Markup& out, const Scene& scene) {
  out.Open("label", {{"for", "filter"}});
  out.Text("Filter by name");
  out.Leaf("input", {{"id", "filter"}, {"type", "search"}, {"autocomplete", "off"}});
  out.Close();
  out.Open("ul", {{"id", "maps"}});
  for (const SceneTile& tile : scene.Tiles) {
    out.Open("li");
    out.Leaf("button",
             {{"id", "button-" + std::to_string(tile.Map)},
              {"type", "button"},
              {"aria-pressed", "false"},
              {"data-map", tile.Map}},
             MapTitle(scene, tile.Map));
    out.Close();
  }
  out.Close();
}

void WriteRow(Markup& out, std::string_view cell, std::initializer_list<std::string> texts) {
  out.Open("tr");
  for (const std::string& text : texts) out.Leaf(cell, {}, text);
  out.Close();
}

void OpenTable(Markup& out, std::string_view title, std::initializer_list<std::string> columns) {
  out.Leaf("h3", {}, title);
  out.Open("table");
  WriteRow(out, "th", columns);
}

void WritePlaces(Markup& out, const Layer& layer, int map) {
  const StrRect& tile = layer.Tiles[map];
  const Hotspot spot = layer.Hotspots[map];
  OpenTable(out, "Tile and hotspot", {"Left", "Top", "Width", "Height", "Center X", "Center Y"});
  WriteRow(
      out, "td",
      {std::to_string(tile.Left), std::to_string(tile.Top), std::to_string(tile.Width),
       std::to_string(tile.Height), std::to_string(spot.CenterX), std::to_string(spot.CenterY)});
  out.Close();
}

void WriteRoad(Markup& out, const Scene& scene, const Road& road, int map) {
  const bool leaves = road.From == map;
  const std::string direction = road.HeadAtBothEnds ? "to and from " : leaves ? "to " : "from ";
  const std::string arrow = road.Kind == RoadKind::Missing ? "" : std::to_string(road.Arrow);
  WriteRow(out, "td",
           {direction + MapTitle(scene, leaves ? road.To : road.From), arrow,
            std::string(KindTitle(road.Kind))});
}

void WriteRoads(Markup& out, const Scene& scene, int map) {
  OpenTable(out, "Connections", {"Map", "Arrow", "Kind"});
  for (const Road& road : scene.Roads) {
    if (road.From == map || road.To == map) WriteRoad(out, scene, road, map);
  }
  out.Close();
}

std::string LeadsTo(const Scene& scene, const VictoryLocation& vl) {
  if (vl.Kind != VLKind::Exit) return {};
  if (vl.Destination == OffMap) return "off the map";
  if (!IsMapSlot(vl.Destination)) return "not a map: " + std::to_string(vl.Destination);
  return MapTitle(scene, vl.Destination);
}

void WriteLocations(Markup& out, const Scene& scene, const MapFile& file) {
  OpenTable(out, "Victory locations and exits", {"VL", "Name", "Kind", "X, Y", "Leads to"});
  for (std::size_t slot = 0; slot < file.VLs.size(); ++slot) {
    const VictoryLocation& vl = file.VLs[slot];
    if (vl.Kind == VLKind::Unused) continue;
    WriteRow(out, "td",
             {std::to_string(slot), Printable(FieldText(vl.Name)), KindName(vl.Kind),
              std::to_string(vl.TileX) + ", " + std::to_string(vl.TileY), LeadsTo(scene, vl)});
  }
  out.Close();
}

void WriteData(Markup& out, const Picture& picture, const Scene& scene) {
  const Layer& layer = *picture.Now;
  out.Open("section", {{"id", "data"}, {"aria-live", "polite"}});
  out.Leaf("p", {{"class", "hint"}}, "Point at a map to see its data; click to pin it.");
  for (const SceneTile& tile : scene.Tiles) {
    out.Open("article", {{"data-map", tile.Map}});
    out.Leaf("h2", {}, tile.Row.empty() ? "Map " + std::to_string(tile.Map) : tile.Row);
    WritePlaces(out, layer, tile.Map);
    WriteRoads(out, scene, tile.Map);
    const auto row = static_cast<std::size_t>(tile.Map);
    if (row < layer.Files.size()) WriteLocations(out, scene, layer.Files[row]);
    out.Close();
  }
  out.Close();
}

void WriteMark(Markup& out, const Mark& mark, std::size_t number) {
  const bool finding = mark.Kind == MarkKind::Finding;
  out.Open("li",
           {{"id", "found-" + std::to_string(number)}, {"class", finding ? "finding" : "warning"}});
  out.Leaf("span", {{"class", "kind"}}, finding ? "Finding: " : "Warning: ");
  if (mark.Map < 0 && mark.Arrow < 0) {
    out.Text(mark.Text);
  } else {
    const std::string place =
        mark.Map >= 0 ? "#map-" + std::to_string(mark.Map) : "#arrow-" + std::to_string(mark.Arrow);
    out.Leaf("a",
             {{"href", place},
              {"data-mark", number},
              {"data-map", mark.Map},
              {"data-arrow", mark.Arrow}},
             mark.Text);
  }
  out.Close();
}

void WriteFound(Markup& out, const Marks& marks) {
  if (marks.empty()) return;
  out.Leaf("h2", {}, "Findings and warnings");
  out.Open("ol", {{"id", "found"}});
  for (std::size_t i = 0; i < marks.size(); ++i) WriteMark(out, marks[i], i + 1);
  out.Close();
}

}  // namespace

std::string DrawPage(const Picture& picture, Reload reload) {
  const Scene scene = MakeScene(*picture.Now);
  const int pause = reload == Reload::Periodically ? ReloadPause : 0;
  Markup out;
  out.Raw("<!DOCTYPE html>\n");
  out.Open("html", {{"lang", "en"}, {"data-reload", pause}});
  WriteHead(out, picture);
  out.Open("body");
  WriteView(out, picture);
  out.Open("aside");
  out.Leaf("h1", {}, PictureTitle(picture));
  out.Leaf("p", {}, Summary(picture, scene) + ".");
  WriteMapList(out, scene);
  WriteData(out, picture, scene);
  WriteFound(out, picture.Found);
  out.Close();
  out.Raw("<script>");
  out.Raw(page_js);
  out.Raw("</script>\n");
  return out.Take();
}

}  // namespace corvane
