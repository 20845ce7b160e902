#include "tool/Text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>

#include "SampleLayer.h"

using namespace corvane;

static MapFile SampleFile() { return LayerOf(MakeSampleGame()).Files[4]; }

TEST(Listing, PrintsOneFactPerLineForAMap) {
  Layer layer = EmptyLayer();
  layer.Rows = {"000 A.btd", "001 B.btd"};
  layer.Tiles[1] = {7, -8, 9, 117, 21, 70, 51};
  layer.Hotspots[1] = {150, 40};
  layer.Connections(1, 0) = 5;
  layer.Connections(1, 42) = -2;
  layer.Arrows[80] = {.Left = 1, .Top = 2, .Width = 3, .Height = 4};
  const std::string listing = ListTables(layer);
  EXPECT_NE(listing.find("map 001 B.btd: tile Left 117, Top 21, Width 70, Height 51\n"
                         "map 001 B.btd: tile opaque words 7, -8, 9\n"
                         "map 001 B.btd: hotspot Center X 150, Center Y 40\n"
                         "map 001 B.btd: connection to map 000 A.btd by arrow 005\n"
                         "map 001 B.btd: connection to map 042 by arrow -2\n"),
            listing.npos);
  EXPECT_NE(listing.find("arrow 080: Left 1, Top 2, Width 3, Height 4\n"
                         "arrow 080: opaque words 0, 0, 0\n"),
            listing.npos);
}

TEST(Listing, PrintsABtdFile) {
  MapFile file{.Name = "A.btd", .Length = 9000};
  file.Header = {19990326, 3};
  file.Text.BaseName = "A";
  file.Text.AxisBrief = "one\r\n\r\ntwo\nthree\x1B";
  file.VLs[0] = {.TileX = 1, .TileY = 2, .Kind = VLKind::Exit, .Destination = 254};
  file.VLs[1].Kind = VLKind{7};
  std::memcpy(file.VLs[1].Name.data(), "Ford\0east", 9);
  const std::string listing = ListBtd(file);
  for (const char* line :
       {"length 9000 bytes\n", "magic number 19990326\n", "map number 3\n", "base name \"A\"\n",
        "VL0 exit off the map, X 1, Y 2, \"\", opaque bytes 00 00 00 00 00\n",
        "VL1 kind 7, X 0, Y 0, \"Ford\" and the bytes 00 65 61 73 74, opaque bytes 00 00 00 00 00, "
        "destination 0\n",
        "Axis briefing: \"one\"\nAxis briefing: \"\"\n"
        "Axis briefing: \"two\\nthree\\x1B\" without a line end\n"}) {
    EXPECT_NE(listing.find(line), listing.npos) << line;
  }
}

// Changes every third byte of an object in turn.
static void ChangeBytes(auto& object, const std::function<void(std::size_t at)>& look) {
  auto* bytes = reinterpret_cast<unsigned char*>(&object);
  for (std::size_t at = 0; at < sizeof object; at += 3) {
    bytes[at] ^= 0x11;
    look(at);
    bytes[at] ^= 0x11;
  }
}

TEST(Listing, ShowsEveryByteOfATable) {
  Layer layer = LayerOf(MakeSampleGame());
  const std::string listing = ListTables(layer);
  const auto look = [&](std::size_t at) { EXPECT_NE(ListTables(layer), listing) << at; };
  ChangeBytes(layer.Tiles[42], look);
  ChangeBytes(layer.Arrows[80], look);
  ChangeBytes(layer.Connections(42, 42), look);
  ChangeBytes(layer.Hotspots[42], look);
}

TEST(Listing, AndDifferencesShowEveryByteOfABtdFile) {
  const SampleMap map = MakeSampleGame().Maps[4];
  BtdFile changed{map.Header, map.VLs, map.Text};
  const MapFile file = MakeMapFile({}, changed);
  const std::string listing = ListBtd(file);
  const auto look = [&](std::size_t at) {
    const MapFile now = MakeMapFile({}, changed);
    EXPECT_NE(BtdDifferences(file, now), Lines()) << at;
    EXPECT_NE(ListBtd(now), listing) << at;
  };
  ChangeBytes(changed.VLs, look);
  ChangeBytes(changed.Text, look);
}

TEST(Differences, NameEachField) {
  Layer before = LayerOf(MakeSampleGame());
  Layer after = before;
  before.Tiles[3].Left = 117;
  after.Tiles[3].Left = 300;
  before.Hotspots[3].CenterY = 5;
  after.Hotspots[3].CenterY = -5;
  before.Connections(3, 0) = NoConnection;
  after.Connections(3, 0) = 12;
  before.Arrows[7].Word1 = 1;
  after.Arrows[7].Word1 = 2;
  const Lines expected{"map 003 Havrune.btd: Left 117 -> 300",
                       "map 003 Havrune.btd: Center Y 5 -> -5",
                       "map 003 Havrune.btd: connection to map 000 Merlaut.btd: arrow none -> 012",
                       "arrow 007: Word1 1 -> 2"};
  EXPECT_EQ(TableDifferences(before, after), expected);
  EXPECT_EQ(TableDifferences(after, after), Lines());
}

TEST(Differences, NameBtdFields) {
  MapFile before = SampleFile();
  MapFile after = before;
  before.Header.MapIndex = 4;
  after.Header.MapIndex = 5;
  before.VLs[2] = {.Kind = VLKind::MinorObjective};
  after.VLs[2] = {.TileX = 7, .Kind = VLKind::Exit, .Destination = 9, .Opaque2 = {0, 255}};
  SetField(after.VLs[2].Name, "Bridge");
  const Lines expected{"Map number 4 -> 5",
                       "VL2: Kind minor objective -> exit",
                       "VL2: X 0 -> 7",
                       "VL2: Destination 0 -> 9",
                       "VL2: Opaque2 00 00 -> 00 FF",
                       "VL2: Name \"\" -> \"Bridge\""};
  EXPECT_EQ(BtdDifferences(before, after), expected);
}

TEST(Differences, CompareBriefingsLineByLine) {
  const std::tuple<const char*, const char*, Lines> rows[] = {
      {"a\r\nb\r\nc\r\n", "a\r\nc\r\n", {"Axis briefing: - \"b\""}},
      {"a\r\nc\r\n", "a\r\nb\r\nc\r\n", {"Axis briefing: + \"b\""}},
      {"a\r\nb\r\n", "a\r\nx\r\n", {"Axis briefing: - \"b\"", "Axis briefing: + \"x\""}},
      {"a\r\n", "a\n", {"Axis briefing: - \"a\"", "Axis briefing: + \"a\\n\" without a line end"}},
      {"", "a\r\n", {"Axis briefing: + \"a\""}}};
  for (const auto& [before, after, expected] : rows) {
    MapFile old, now;
    old.Text.AxisBrief = before;
    now.Text.AxisBrief = after;
    EXPECT_EQ(BtdDifferences(old, now), expected);
  }
}

TEST(Differences, PairFilesByName) {
  Layer before = LayerOf(MakeSampleGame());
  before.Files.resize(3);
  before.Rows.resize(3);
  Layer after = before;
  after.Files[1].Name = "dornesch.btd";
  after.Files[1].Header.Magic = 5;
  after.Files[2].Name = "New.btd";
  after.Rows = {"000 Merlaut.btd", "001 dornesch.btd", "002 New.btd"};
  const Lines expected{"map 001 DORNESCH.BTD: Magic number 19990326 -> 5",
                       "map 002 Alverin.Btd: only in old", "map 002 New.btd: only in new"};
  EXPECT_EQ(FileDifferences(before, after, "old", "new"), expected);
}
