#include "tool/Picture.h"

#include <gtest/gtest.h>

#include "Labels.h"
#include "SampleLayer.h"
#include "Scene.h"
#include "Xml.h"

using namespace corvane;

namespace {

// Two maps side by side, each with a tile and a hotspot in it, and nothing between them.
Layer TwoMaps() {
  Layer layer;
  layer.Rows = {"000 West.btd", "001 East.btd"};
  for (int map = 0; map < MapSlotCount; ++map) {
    for (int to = 0; to < MapSlotCount; ++to) layer.Connections(map, to) = NoConnection;
    for (int vl = 0; vl < VLSlotCount; ++vl) layer.Destinations(map, vl) = NotAnExit;
  }
  layer.Tiles[0] = {.Left = 100, .Top = 200, .Width = 60, .Height = 50};
  layer.Tiles[1] = {.Left = 500, .Top = 200, .Width = 60, .Height = 50};
  layer.Hotspots[0] = {130, 220};
  layer.Hotspots[1] = {530, 220};
  return layer;
}

Xml Drawn(const Layer& layer, const Marks& found = {}) {
  return Xml(DrawSvg({"CC4.EXE", &layer, nullptr, {}, found}));
}

using Shape = std::pair<std::string, std::string>;  // class, and heads at start and end

std::vector<Shape> RoadsOf(const Layer& layer) {
  std::vector<Shape> shapes;
  for (const XmlElement& road : Drawn(layer).All("path", "road ")) {
    if (road["data-from"] == "(none)") continue;  // of the legend
    const bool atStart = road["marker-start"] != "none";
    shapes.push_back({road["class"], road["data-from"] + (atStart ? "<>" : ">") + road["data-to"]});
  }
  return shapes;
}

Box BoxOf(const XmlElement& rect) {
  return BoxOf(StrRect{0, 0, 0, rect.Number("x"), rect.Number("y"), rect.Number("width"),
                       rect.Number("height")});
}

std::string Id(const char* kind, int number) { return kind + std::to_string(number); }

}  // namespace

TEST(Picture, DrawsEveryTileHotspotAndArrowOfTheSampleToScale) {
  Layer layer = LayerOf(MakeSampleGame());
  const Xml picture = Drawn(layer);
  ASSERT_EQ(picture.Fault, "");
  const std::vector<XmlElement> spots = picture.All("circle", "spot");
  ASSERT_EQ(spots.size(), 44U);  // and one in the legend
  for (int map = 0; map < MapSlotCount; ++map) {
    const XmlElement& spot = spots[static_cast<std::size_t>(map)];
    EXPECT_EQ(BoxOf(picture.Child(Id("map-", map), "rect")), BoxOf(layer.Tiles[map])) << map;
    EXPECT_EQ(spot.Number("cx"), layer.Hotspots[map].CenterX) << map;
    EXPECT_EQ(spot.Number("cy"), layer.Hotspots[map].CenterY) << map;
  }
  for (int arrow = 0; arrow < ArrowSlotCount; ++arrow)
    EXPECT_EQ(BoxOf(picture.Child(Id("arrow-", arrow), "rect")), BoxOf(layer.Arrows[arrow]));
}

TEST(Picture, DrawsARoadThroughItsArrowOnTheSheet) {
  const std::pair<Hotspot, const char*> rows[] = {{{330, 240}, "M130 220Q330 260 530 220"},
                                                  {{30, 590}, "M130 220L30 590L530 220"}};
  for (const auto& [middle, path] : rows) {
    Layer layer = TwoMaps();
    layer.Arrows[4] = {0, 0, 0, middle.CenterX - 10, middle.CenterY - 10, 20, 20};
    layer.Connections(0, 1) = 4;
    EXPECT_EQ(Drawn(layer).All("path", "road no-exit")[0]["d"], path);
  }
}

TEST(Picture, DistinguishesKindsOfRoads) {
  // Arrows there and back, where VL0 of either map leads, and what is drawn.
  const std::tuple<int, int, int, int, std::vector<Shape>> cases[] = {
      {-1, -1, -1, -1, {}},
      {7, 7, 1, 0, {{"road both", "0<>1"}}},
      {7, 8, 1, 0, {{"road both", "0>1"}, {"road both", "1>0"}}},
      {7, -1, 1, -1, {{"road one-way", "0>1"}}},
      {-1, 0, -1, 0, {{"road one-way", "1>0"}}},
      {7, -1, -1, -1, {{"road no-exit", "0>1"}}},
      {7, 7, 1, -1, {{"road no-exit", "1>0"}, {"road both", "0>1"}}},
      {7, 7, -1, -1, {{"road no-exit", "0<>1"}}},
      {-1, -1, 1, -1, {{"road missing", "0>1"}}},
      {81, -2, 1, 0, {{"road both", "0>1"}, {"road both", "1>0"}}}};
  for (const auto& [there, back, exit, exitBack, roads] : cases) {
    Layer layer = TwoMaps();
    layer.Connections(0, 1) = there;
    layer.Connections(1, 0) = back;
    layer.Destinations(0, 0) = exit;
    layer.Destinations(1, 0) = exitBack;
    EXPECT_EQ(RoadsOf(layer), roads) << there << " " << back << " " << exit << " " << exitBack;
  }
}

TEST(Picture, TakesNoExitsFromASlotWithoutAFile) {
  Layer layer = TwoMaps();
  layer.Destinations(5, 0) = 0;  // as a table that no file ever filled
  EXPECT_EQ(RoadsOf(layer), std::vector<Shape>());
  EXPECT_EQ(Drawn(layer).Id("map-5").Name, "");
}

TEST(Picture, PointsOffTheMapAtTheNearestEdge) {
  const std::tuple<int, int, const char*> cases[] = {{10, 300, "M10 320v10l-9-5z"},
                                                     {730, 300, "M790 320v10l9-5z"},
                                                     {400, 4, "M425 4h10l-5-9z"},
                                                     {400, 540, "M425 590h10l-5 9z"}};
  for (const auto& [left, top, path] : cases) {
    Layer layer = TwoMaps();
    layer.Tiles[0] = {.Left = left, .Top = top, .Width = 60, .Height = 50};
    layer.Destinations(0, 3) = OffMap;
    EXPECT_EQ(Drawn(layer).All("path", "off-map")[0]["d"], path);
  }
}

TEST(Picture, KeepsExtremeNumbersOnTheSheet) {
  Layer layer = TwoMaps();
  constexpr std::int32_t Wild[] = {INT32_MIN, -1, 0, 801, INT32_MAX};
  for (const std::int32_t place : Wild) {
    for (const std::int32_t size : Wild) {
      layer.Tiles[1] = {0, 0, 0, place, place, size, size};
      const Box box = BoxOf(Drawn(layer).Child("map-1", "rect"));
      EXPECT_GE(std::min(box.Left, box.Top), -SheetMargin) << place << " " << size;
      EXPECT_GT(box.Right, box.Left) << place << " " << size;
      EXPECT_GT(box.Bottom, box.Top) << place << " " << size;
      EXPECT_LE(box.Right, ScreenWidth + SheetMargin) << place << " " << size;
      EXPECT_LE(box.Bottom, ScreenHeight + SheetMargin) << place << " " << size;
    }
  }
}

TEST(Picture, OverlapsNoLabelsAndKeepsEveryNameInATooltip) {
  Layer layer = LayerOf(MakeSampleGame());
  for (int map = 0; map < MapSlotCount; ++map) {
    layer.Tiles[map] = {.Left = 300 + map, .Top = 300, .Width = 60, .Height = 50};
  }
  const Xml picture = Drawn(layer);
  std::vector<Box> labels;
  for (const XmlElement& label : picture.All("text", "name")) {
    const Point start{label.Number("x"), label.Number("y")};
    labels.push_back({start.X, start.Y - 8, start.X + TextWidth(label.Text, 9), start.Y + 1});
  }
  EXPECT_GE(labels.size(), 6U);
  EXPECT_LT(labels.size(), 43U);
  for (std::size_t i = 0; i < labels.size(); ++i) {
    for (std::size_t k = 0; k < i; ++k) EXPECT_FALSE(Overlap(labels[i], labels[k])) << i << k;
  }
  const std::string title = picture.Child("map-42", "title").Text;
  EXPECT_TRUE(title.starts_with(layer.Rows[42])) << title;
}

TEST(Picture, ShowsHostileNamesAndRunsNoneOfThem) {
  const std::pair<const char*, const char*> rows[] = {
      {"<script>alert(1)</script>", "<script>alert(1)</script>"},
      {"\"' onload=\"x", "\"' onload=\"x"},
      {"&amp;]]><!--", "&amp;]]><!--"},
      {"a\nb\x1B[31m", "a\\nb\\x1B[31m"},
      {"\u202Egpj.\u2066x", "\\u202Egpj.\\u2066x"},
      {"\xFF\xED\xA0\x80", "\\xFF\\xED\\xA0\\x80"},
      {"\u05D0\u05D1 \u6771", "\u05D0\u05D1 \u6771"}};
  for (const auto& [name, shown] : rows) {
    Layer layer = TwoMaps();
    layer.Rows[0] = "000 " + std::string(name) + ".btd";
    const Xml picture = Drawn(layer);
    EXPECT_EQ(picture.Fault, "");
    EXPECT_EQ(picture.Id("map-0")["aria-label"], std::string("Map 0 ") + shown);
  }
}

TEST(Picture, NumbersFindingsAndWarningsInPlaceAndInTheList) {
  Layer layer = TwoMaps();
  layer.Arrows[4] = {.Left = 300, .Top = 210, .Width = 20, .Height = 20};
  const Xml picture = Drawn(layer, {{MarkKind::Finding, "bad <tile>", 1, -1},
                                    {MarkKind::Warning, "idle arrow", -1, 4},
                                    {MarkKind::Warning, "too many files", -1, -1}});
  ASSERT_EQ(picture.Fault, "");
  EXPECT_EQ(picture.Child("at-1", "title").Text, "bad <tile>");
  EXPECT_TRUE(Overlap(BoxOf(picture.Child("at-1", "rect")), {500, 200, 560, 250}));
  EXPECT_TRUE(Overlap(BoxOf(picture.Child("at-2", "rect")), {300, 210, 320, 230}));
  EXPECT_EQ(picture.Id("at-2")["class"], "badge warning");
  EXPECT_EQ(picture.Id("at-3").Name, "");
  EXPECT_EQ(picture.Id("map-1")["class"], "tile flawed");
  EXPECT_EQ(picture.Id("map-0")["class"], "tile");
  for (int number = 1; number <= 3; ++number) {
    EXPECT_EQ(picture.Child("mark-" + std::to_string(number), "text").Text, std::to_string(number));
  }
}

TEST(Picture, ListsHundredsOfFindingsCompletelyAndOnTheSheet) {
  Layer layer = TwoMaps();
  const std::string text = "A finding long enough to fill more than one line of the list, by far";
  const Xml picture = Drawn(layer, Marks(554, {MarkKind::Finding, text, 0, -1}));
  ASSERT_EQ(picture.Fault, "");
  std::string listed;
  const int height = picture.Elements[0].Number("height");
  for (const XmlElement& line : picture.All("text")) {
    if (picture.Elements[line.Parent]["class"] != "list" || line["class"] == "title") continue;
    listed += line.Text + " ";
    EXPECT_LT(line.Number("y"), height);
  }
  std::string wanted;
  for (int i = 0; i < 554; ++i) wanted += text + " ";
  EXPECT_EQ(listed, wanted);
}

TEST(Picture, OutlinesWhatMovedWhereItWas) {
  const Layer before = TwoMaps();
  Layer now = before;
  now.Tiles[1].Left = 600;
  const Xml picture(DrawSvg({"CC4.EXE", &now, &before, "old.crv", {}}));
  ASSERT_EQ(picture.Fault, "");
  std::vector<Box> outlines;
  for (const XmlElement& rect : picture.All("rect")) {
    const XmlElement& group = picture.Elements[rect.Parent];
    if (picture.Elements[group.Parent]["class"] == "old") outlines.push_back(BoxOf(rect));
  }
  EXPECT_EQ(outlines, (std::vector<Box>{{500, 200, 560, 250}}));
  EXPECT_EQ(BoxOf(picture.Child("map-1", "rect")).Left, 600);
}

TEST(Picture, OutlinesConnectionsThatAreGone) {
  Layer before = TwoMaps();
  before.Connections(0, 1) = before.Connections(1, 0) = 3;
  before.Destinations(0, 0) = 1;  // what an exit asks for is no connection
  Layer now = before;
  for (const auto& [arrow, outlines] : {std::pair(3, 0U), {5, 0U}, {NoConnection, 1U}}) {
    now.Connections(1, 0) = arrow;
    const Xml picture(DrawSvg({"a", &now, &before, "b", {}}));
    EXPECT_EQ(picture.All("path", "gone").size(), outlines) << arrow;
  }
}
