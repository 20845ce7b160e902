// The annotations of the picture: badges of findings and warnings, their list, the legend.
#include <algorithm>
#include <array>
#include <optional>

#include "PictureParts.h"
#include "tool/Printable.h"

namespace corvane {
namespace {

constexpr int BadgeHeight = 10;
constexpr int ListSize = 9;  // font size in pixels
constexpr int LineHeight = 12;
constexpr int TextIndent = 22;  // room for the widest badge
constexpr int ColumnWidth = 284;
constexpr int ColumnPitch = 296;
constexpr int ListColumns = 4;  // one beside the map; all four below it
constexpr int FirstColumn = ScreenWidth + SheetMargin + 20;

int BadgeWidth(std::size_t number) { return number < 10 ? 10 : number < 100 ? 14 : 18; }

std::string_view KindName(MarkKind kind) {
  return kind == MarkKind::Finding ? "finding" : "warning";
}

std::optional<Box> PlaceOf(const Scene& scene, const Mark& mark) {
  const auto tile = std::ranges::find(scene.Tiles, mark.Map, &SceneTile::Map);
  if (tile != scene.Tiles.end()) return tile->Place;
  const auto arrow = std::ranges::find(scene.Arrows, mark.Arrow, &SceneArrow::Arrow);
  if (arrow != scene.Arrows.end()) return arrow->Place;
  return std::nullopt;
}

// Tries the upper edge from the right, then the lower edge, then the inside.
std::optional<Box> FreePlace(const LabelSheet& labels, const Box& at, int width) {
  const int rows[] = {at.Top - BadgeHeight / 2, at.Bottom - BadgeHeight / 2,
                      at.Top + BadgeHeight / 2 + 1, at.Bottom - 3 * BadgeHeight / 2 - 1};
  for (const int top : rows) {
    for (int left = at.Right - width + 4; left >= at.Left - width; left -= width + 1) {
      const Box box{left, top, left + width, top + BadgeHeight};
      if (labels.IsFree(box)) return box;
    }
  }
  return std::nullopt;
}

void DrawBadge(Markup& out, const Box& box, MarkKind kind, std::size_t number) {
  out.Leaf("rect", {{"x", box.Left},
                    {"y", box.Top},
                    {"width", box.Right - box.Left},
                    {"height", BadgeHeight},
                    {"rx", kind == MarkKind::Finding ? BadgeHeight / 2 : 0}});
  out.Leaf("text", {{"x", FormatHalves(box.Left + box.Right)}, {"y", box.Bottom - 2}},
           number == 0 ? "!" : std::to_string(number));
}

void DrawBadgeAt(Sheet& sheet, const Mark& mark, std::size_t number) {
  const std::optional<Box> place = PlaceOf(sheet.Now, mark);
  if (!place) return;
  const std::optional<Box> box = FreePlace(sheet.Labels, *place, BadgeWidth(number));
  if (!box) return;
  sheet.Labels.Reserve(*box);
  sheet.Out.Open("a", {{"id", "at-" + std::to_string(number)},
                       {"href", "#mark-" + std::to_string(number)},
                       {"class", "badge " + std::string(KindName(mark.Kind))},
                       {"data-map", mark.Map},
                       {"data-arrow", mark.Arrow},
                       {"data-mark", number}});
  sheet.Out.Leaf("title", {}, Printable(mark.Text));
  DrawBadge(sheet.Out, *box, mark.Kind, number);
  sheet.Out.Close();
}

struct ListLine {
  std::string Text;
  std::size_t Mark = 0;  // number of the finding or warning that begins here; 0 for none
};

std::vector<ListLine> ListLines(const Marks& marks) {
  std::vector<ListLine> lines;
  for (std::size_t i = 0; i < marks.size(); ++i) {
    std::size_t number = i + 1;
    const std::string text = Printable(marks[i].Text);
    for (std::string& line : Wrapped(text, ListSize, ColumnWidth - TextIndent)) {
      lines.push_back({std::move(line), number});
      number = 0;
    }
  }
  return lines;
}

int LinesBeside() { return (LegendBottom - LineHeight) / LineHeight; }

int LinesBelow(int lines) {
  const int rest = std::max(0, lines - LinesBeside());
  return (rest + ListColumns - 1) / ListColumns;
}

Point LineStart(int line, int lines) {
  if (line < LinesBeside()) return {FirstColumn, LineHeight * (line + 1)};
  const int below = line - LinesBeside();
  const int rows = LinesBelow(lines);
  return {FirstColumn - (ListColumns - 1 - below / rows) * ColumnPitch,
          LegendBottom + LineHeight * (below % rows + 1)};
}

void DrawListLine(Sheet& sheet, const ListLine& line, Point start) {
  if (line.Mark > 0) {
    const int width = BadgeWidth(line.Mark);
    const Mark& mark = sheet.Input.Found[line.Mark - 1];
    sheet.Out.Open("g", {{"id", "mark-" + std::to_string(line.Mark)},
                         {"class", "badge " + std::string(KindName(mark.Kind))}});
    DrawBadge(sheet.Out, {start.X, start.Y - BadgeHeight + 1, start.X + width, start.Y + 1},
              mark.Kind, line.Mark);
    sheet.Out.Close();
  }
  sheet.Out.Leaf("text", {{"x", start.X + TextIndent}, {"y", start.Y}}, line.Text);
}

struct LegendEntry {
  std::string_view Text;
  std::string_view Symbol;  // its class
};

// The symbol of an entry, about 30 x 10 pixels.
void DrawSymbol(Markup& out, std::string_view symbol, Point at) {
  if (symbol == "finding" || symbol == "warning") {
    const MarkKind kind = symbol == "finding" ? MarkKind::Finding : MarkKind::Warning;
    out.Open("g", {{"class", "badge " + std::string(symbol)}});
    DrawBadge(out, {at.X + 10, at.Y, at.X + 20, at.Y + BadgeHeight}, kind, 0);
    return out.Close();
  }
  const std::string x = std::to_string(at.X);
  const std::string y = std::to_string(at.Y + 5);
  if (symbol == "spot") {
    return out.Leaf("circle", {{"class", "spot"}, {"cx", at.X + 15}, {"cy", at.Y + 5}, {"r", 3}});
  }
  if (symbol == "off-map") {
    return out.Leaf("path", {{"class", "off-map"}, {"d", "M" + x + " " + y + "m11-5v10l9-5z"}});
  }
  if (symbol == "arrow" || symbol == "tile" || symbol == "old") {
    out.Open("g", {{"class", std::string(symbol)}});
    out.Leaf("rect", {{"x", at.X + 4}, {"y", at.Y}, {"width", 22}, {"height", 10}});
    return out.Close();
  }
  const std::string head = "url(#head-" + std::string(symbol) + ")";
  out.Leaf("path", {{"class", "road " + std::string(symbol)},
                    {"d", "M" + x + " " + y + "h34"},
                    {"marker-end", head}});
}

std::string Counted(std::size_t count, std::string_view what) {
  const std::string number = count == 0 ? "no" : std::to_string(count);
  return number + " " + std::string(what) + (count == 1 ? "" : "s");
}

}  // namespace

std::string_view KindTitle(RoadKind kind) {
  switch (kind) {
    case RoadKind::BothWays:
      return "both ways";
    case RoadKind::OneWay:
      return "one way, no connection back";
    case RoadKind::NoExit:
      return "no exit in the BTD file";
    default:
      return "exit without a connection";
  }
}

std::string_view KindClass(RoadKind kind) {
  switch (kind) {
    case RoadKind::BothWays:
      return "both";
    case RoadKind::OneWay:
      return "one-way";
    case RoadKind::NoExit:
      return "no-exit";
    default:
      return "missing";
  }
}

void DrawBadges(Sheet& sheet) {
  sheet.Out.Open("g", {{"class", "badges"}});
  for (std::size_t i = 0; i < sheet.Input.Found.size(); ++i) {
    DrawBadgeAt(sheet, sheet.Input.Found[i], i + 1);
  }
  sheet.Out.Close();
}

void DrawLegend(Sheet& sheet) {
  const std::array<LegendEntry, 10> entries{{{KindTitle(RoadKind::BothWays), "both"},
                                             {KindTitle(RoadKind::OneWay), "one-way"},
                                             {KindTitle(RoadKind::NoExit), "no-exit"},
                                             {KindTitle(RoadKind::Missing), "missing"},
                                             {"exit off the map", "off-map"},
                                             {"tile, with number and name", "tile"},
                                             {"arrow, with its number", "arrow"},
                                             {"hotspot", "spot"},
                                             {"finding of the check", "finding"},
                                             {"warning", "warning"}}};
  constexpr int Columns[] = {0, 180, 384, 550, 730};
  sheet.Out.Open("g", {{"class", "legend"}});
  int place = 0;
  for (const auto& [text, symbol] : entries) {
    const Point at{-SheetMargin + Columns[place % 5], LegendTop + place / 5 * 16};
    DrawSymbol(sheet.Out, symbol, at);
    sheet.Out.Leaf("text", {{"x", at.X + 38}, {"y", at.Y + 9}}, text);
    ++place;
  }
  if (sheet.Input.Before) {
    const Point at{-SheetMargin, LegendTop + 32};
    DrawSymbol(sheet.Out, "old", at);
    sheet.Out.Leaf("text", {{"x", at.X + 38}, {"y", at.Y + 9}},
                   "as in " + Shortened(Printable(sheet.Input.BeforeName), 10, 400));
  }
  sheet.Out.Close();
}

Point ListEnd(const Marks& marks) {
  if (marks.empty()) return {ScreenWidth + SheetMargin + 8, LegendBottom};
  const int below = LinesBelow(static_cast<int>(ListLines(marks).size()));
  return {FirstColumn + ColumnWidth + 8,
          LegendBottom + (below == 0 ? 0 : below * LineHeight + LineHeight)};
}

void DrawList(Sheet& sheet) {
  if (sheet.Input.Found.empty()) return;
  const std::vector<ListLine> lines = ListLines(sheet.Input.Found);
  sheet.Out.Open("g", {{"class", "list"}});
  sheet.Out.Leaf("text", {{"class", "title"}, {"x", FirstColumn}, {"y", -8}},
                 "Findings and warnings");
  for (std::size_t i = 0; i < lines.size(); ++i) {
    DrawListLine(sheet, lines[i], LineStart(static_cast<int>(i), static_cast<int>(lines.size())));
  }
  sheet.Out.Close();
}

std::string Summary(const Picture& picture, const Scene& scene) {
  std::size_t connections = 0;
  for (const Road& road : scene.Roads) {
    if (road.Kind != RoadKind::Missing) connections += road.HeadAtBothEnds ? 2 : 1;
  }
  const auto findings =
      static_cast<std::size_t>(std::ranges::count(picture.Found, MarkKind::Finding, &Mark::Kind));
  return Counted(picture.Now->Rows.size(), "map") + ", " + Counted(connections, "connection") +
         ", " + Counted(findings, "finding") + ", " +
         Counted(picture.Found.size() - findings, "warning");
}

}  // namespace corvane
