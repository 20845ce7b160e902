#include "tool/Warnings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "SampleLayer.h"
#include "TestFolder.h"

using namespace corvane;

// Three sound maps in a row, joined both ways by exits, connections and an arrow for each pair.
struct Warnings : testing::Test {
  Warnings() {
    ResetTables();
    for (int map = 0; map < MapSlotCount; ++map) Checked.Tiles[map] = {.Width = 1, .Height = 1};
    for (int arrow = 0; arrow < ArrowSlotCount; ++arrow)
      Checked.Arrows[arrow] = {.Left = 5 * arrow, .Top = 300, .Width = 5, .Height = 5};
    for (int map = 0; map < 3; ++map) AddMap(map, "ABC"[map]);
    Join(0, 1, 0);
    Join(1, 2, 1);
    for (const Mark& mark : WarningsOf(Checked)) Ignored.push_back(mark.Text);
  }

  void AddMap(int map, char name) {
    Checked.Rows.push_back(ThreeDigits(map) + ' ' + name + ".btd");
    Checked.Tiles[map] = {.Left = 100 * map, .Top = 50, .Width = 80, .Height = 60};
    Checked.Hotspots[map] = {100 * map + 40, 80};
    MapFile file{.Name = std::string(1, name) + ".btd", .Length = 8526};
    file.Header = {19990326, static_cast<std::uint8_t>(map)};
    file.Text.BaseName = name;
    Checked.Files.push_back(file);
  }

  void Join(int left, int right, int arrow) {
    Checked.Connections(left, right) = Checked.Connections(right, left) = arrow;
    Checked.Destinations(left, 0) = right;
    Checked.Destinations(right, 1) = left;
  }

  // One per line, without those of the unchanged fixture.
  std::string NewWarnings() {
    std::string lines;
    for (const Mark& mark : WarningsOf(Checked))
      if (std::ranges::find(Ignored, mark.Text) == Ignored.end()) lines += mark.Text + '\n';
    return lines;
  }

  Layer Checked = EmptyLayer();
  std::vector<std::string> Ignored;
};

TEST_F(Warnings, CoverUnusedArrows) {
  ASSERT_EQ(Ignored.size(), 79U);
  EXPECT_EQ(Ignored[0], "arrow 002: no connection uses it");
  Checked.Connections(0, 1) = 80;
  EXPECT_EQ(NewWarnings(), "");  // arrow 0 still leads back
  Checked.Connections(1, 0) = 80;
  EXPECT_EQ(NewWarnings(), "arrow 000: no connection uses it\n");
}

TEST_F(Warnings, CoverTilesAndHotspotsOutOfPlace) {
  const std::string tile = "map 000 A.btd: its tile extends beyond 800 x 600\n";
  const std::string spot = "map 000 A.btd: its hotspot is outside its tile\n";
  const std::string both = tile + "map 000 A.btd: its hotspot is outside 800 x 600\n";
  const std::tuple<StrRect, Hotspot, std::string> rows[] = {
      {{0, 0, 0, 720, 540, 80, 60}, {799, 599}, ""},
      {{0, 0, 0, 721, 540, 80, 60}, {799, 599}, tile},
      {{0, 0, 0, 720, 541, 80, 60}, {800, 599}, both},
      {{0, 0, 0, 720, 500, 79, 60}, {799, 520}, spot},
      {{0, 0, 0, 720, 500, 79, 60}, {720, 499}, spot},
      {{0, 0, 0, 2147483647, 0, 2147483647, 1}, {5, 0}, tile + spot}};
  for (const auto& [rect, place, expected] : rows) {
    Checked.Tiles[0] = rect;
    Checked.Hotspots[0] = place;
    EXPECT_EQ(NewWarnings(), expected) << rect.Left << " " << rect.Top;
  }
}

TEST_F(Warnings, CoverTilesThatOverlap) {
  Checked.Tiles[0].Width = 100;
  EXPECT_EQ(NewWarnings(), "");  // they touch
  Checked.Tiles[0].Width = 101;
  EXPECT_EQ(NewWarnings(), "map 000 A.btd: its tile overlaps that of map 001 B.btd\n");
  Checked.Tiles[0].Height = 0;
  EXPECT_EQ(NewWarnings(), "map 000 A.btd: its hotspot is outside its tile\n");
}

TEST_F(Warnings, CoverConnections) {
  const std::string toB = "map 000 A.btd: the connection to map 001 B.btd ";
  const std::tuple<int, int, int, std::string> rows[] = {
      {0, 1, 81, toB + "names arrow 81, which does not exist\n"},
      {0, 1, -2, toB + "names arrow -2, which does not exist\n"},
      {1, 0, NoConnection,
       toB + "has no connection back\n"
             "map 000 A.btd: the exit VL0 leads to map 001 B.btd, which has no connection back\n"
             "map 000 A.btd: no other map leads to it\n"},
      {0, 2, 0,
       "map 000 A.btd: the connection to map 002 C.btd has no connection back\n"
       "map 000 A.btd: the connection to map 002 C.btd has no exit\n"
       "arrow 000: unrelated connections use it: 000 - 001, 000 - 002\n"},
      {1, 1, 1,
       "map 001 B.btd: it is connected to itself\n"
       "map 001 B.btd: the connection to map 001 B.btd has no exit\n"
       "arrow 001: unrelated connections use it: 001 - 001, 001 - 002\n"}};
  for (const auto& [from, to, arrow, expected] : rows) {
    const std::int32_t old = std::exchange(Checked.Connections(from, to), arrow);
    EXPECT_EQ(NewWarnings(), expected) << from << " to " << to << " by " << arrow;
    Checked.Connections(from, to) = old;
  }
}

TEST_F(Warnings, NameAtMostFourConnectionsOfAnArrow) {
  for (int to = 3; to < 9; ++to) Checked.Connections(0, to) = Checked.Connections(to, 0) = 0;
  EXPECT_NE(NewWarnings().find("use it: 000 - 001, 000 - 003, 000 - 004, 000 - 005 and 3 more\n"),
            std::string::npos);
}

TEST_F(Warnings, CoverExitsAndArrows) {
  Checked.Destinations(2, 5) = 2;
  Checked.Destinations(2, 6) = 7;
  Checked.Destinations(2, 7) = OffMap;
  Checked.Arrows[1] = {.Left = 795, .Top = 595, .Width = 5, .Height = 6};
  EXPECT_EQ(NewWarnings(),
            "map 002 C.btd: the exit VL5 leads to the map itself\n"
            "map 002 C.btd: the exit VL6 leads to map 007, which has no BTD file\n"
            "arrow 001: it extends beyond 800 x 600\n");
}

TEST_F(Warnings, CoverNumbersOutOfOrder) {
  Checked.Files[1].Header.MapIndex = 2;
  EXPECT_EQ(NewWarnings(),
            "map 001 B.btd: its file has the map number 2, but is in row 1\n"
            "map 001 B.btd: C.btd has the same map number\n"
            "no BTD file has the map number 1\n");
}

TEST_F(Warnings, CoverBtdFiles) {
  using Change = void (*)(MapFile&);
  const std::pair<Change, const char*> rows[] = {
      {[](MapFile& file) { file.Header.Magic = 1; }, "the magic number is 1, not 19990326"},
      {[](MapFile& file) { file.Header.MapIndex = 43; },
       "the map number is 43, which is not a map slot"},
      {[](MapFile& file) { file.Text.BaseName = 'X'; },
       "the base name is \"X\", not the file's name"},
      {[](MapFile& file) { file.Length = 8525; }, "only 8525 bytes long, not 8526"},
      {[](MapFile& file) { file.VLs[3].Kind = VLKind{306}; }, "VL3 has the unknown kind 306"},
      {[](MapFile& file) { file.VLs[3] = {.Kind = VLKind::Exit, .Destination = 43}; },
       "the exit VL3 leads to 43, which is not a map"},
      {[](MapFile& file) { file.VLs[9].Name.fill('x'); }, "the name of VL9 has no terminating NUL"},
      {[](MapFile& file) { file.Text.AlliedBrief.assign(4096, 'x'); },
       "the Allied briefing has no terminating NUL"},
      {[](MapFile& file) { file.Text.AxisBrief.assign(4096, 'x'); },
       "the Axis briefing has no terminating NUL"}};
  for (const auto& [change, expected] : rows) {
    MapFile file = Checked.Files[0];
    change(file);
    const Marks marks = WarningsOf(file);
    ASSERT_EQ(marks.size(), 1U) << expected;
    EXPECT_EQ(marks[0].Text, expected);
  }
}

TEST_F(Warnings, IgnoreTheLetterCaseOfFiles) {
  Checked.Files[0].Name = "a.BTD";
  Checked.Files[1].VLs[0] = {.Kind = VLKind::Exit, .Destination = 254};
  Checked.Files[1].VLs[1] = {.Kind = VLKind::Unused, .Destination = 200};
  EXPECT_EQ(NewWarnings(), "");
}

TEST_F(Warnings, AndFindingsNameTheirSlots) {
  using Places = std::vector<std::pair<int, int>>;
  const auto placesOf = [](const Marks& marks) {
    Places places;
    for (const Mark& mark : marks) places.emplace_back(mark.Map, mark.Arrow);
    return places;
  };
  Checked.Hotspots[2] = {};
  const Places warnings = placesOf(WarningsOf(Checked));
  ASSERT_FALSE(warnings.empty());
  EXPECT_EQ(warnings.front(), std::pair(2, -1));
  EXPECT_EQ(warnings.back(), std::pair(-1, 80));
  Checked.Destinations(1, 1) = NotAnExit;    // map 0 has no exit back
  Checked.Connections(2, 1) = NoConnection;  // nor map 1 a connection, nor the exit of map 2
  Checked.Tiles[30].Height = 0;
  Checked.Arrows[80].Left = -1;
  Tables = TablesOf(Checked);
  VLDest = Checked.Destinations;
  MapRows = Checked.Rows;
  EXPECT_EQ(placesOf(FindingMarks()), (Places{{0, -1}, {1, -1}, {2, -1}, {30, -1}, {-1, 80}}));
}
