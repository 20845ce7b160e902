#include "TestFolder.h"
#include "rules/ConnectionEditing.h"
#include "rules/FieldEntry.h"
#include "rules/MapSlots.h"

using namespace corvane;

using Rows = std::vector<std::string>;

TEST(ConnectionEditing, ListsEveryMapAndAsksForTheMapsByTheirRows) {
  ResetTables();  // every map has a connection to every map, by arrow 0
  MapRows = {"000 A.btd"};
  EXPECT_EQ(ConnectionRows(1).size(), 43U);
  EXPECT_EQ(ConnectionRows(1)[0] + ConnectionRows(1)[42], "000 A.btd");
  EXPECT_TRUE(ConnectionDeletePrompt("000 A.btd", "001 B.btd")
                  .starts_with("Are you sure you want to delete the connection from map 000 A.btd "
                               "to map 001 B.btd?  Note: You must"));
}

TEST(FieldEntry, TakesDigitsUpToTheLargestNumberAndBeepsOnceAtAllElse) {
  const std::map<std::string, std::int32_t> numbers{
      {"", 0}, {"007", 7}, {"2147483647", 2147483647}, {"0000000000000000000042", 42}};
  int beeps = 0;
  Beep = [&] { ++beeps; };
  for (const char* text : {"", "007", "2147483647", "0000000000000000000042", "2147483648", "-1",
                           "99999999999999999999999999", " 1", "1 ", "1/", ":", "\xD9\xA1"}) {
    SCOPED_TRACE(text);
    ResetTables();
    beeps = 0;
    const bool fits = numbers.contains(text);
    EXPECT_EQ(EnterField(MapTop, -1, text), fits);
    EXPECT_EQ(beeps, fits ? 0 : 1);
    EXPECT_FALSE(TablesDirty);
    StrMap[42].Top = -5;
    EXPECT_EQ(EnterField(MapTop, 42, text), fits);
    EXPECT_EQ(StrMap[42].Top, fits ? numbers.at(text) : -5);
    EXPECT_EQ(TablesDirty, fits);
  }
  Beep = [] {};
}

TEST(MapSlots, ANewOneGoesByItsTextAndAClearedOneLeavesNothingThatLeadsThere) {
  const TestFolder folder;
  GamePath = folder / "";
  folder.Put("Maps/A.btd");
  MapRows = {"000 A.btd", "007 B.btd"};
  EXPECT_TRUE(AddMapSlot());
  EXPECT_EQ(MapRows, (Rows{"000 A.btd", "002", "007 B.btd"}));
  const StrRect rect{7, 6, 5, 4, 3, 2, 1};
  StrMap[0] = StrMap[1] = StrArrow[1] = rect;
  MapHotspots[1] = {8, 9};
  for (int vl = 0; vl < VLSlotCount; ++vl) VLDest(0, vl) = vl + 1;
  MapRows.shrink_to_fit();  // or a row behind the last would still lie in memory of its own
  for (const int map : {1, 2, 3, 42, -1, MapSlotCount}) EXPECT_TRUE(DeleteMapSlot(map).Done());
  EXPECT_FALSE(std::filesystem::exists(folder / "Maps/B.btd"));
  FailFrom(0);
  EXPECT_FALSE(DeleteMapSlot(0).Done()) << "its file cannot be cleared";
  EXPECT_TRUE(StrMap[0] == rect && StrArrow[1] == rect);
  EXPECT_TRUE(StrMap[1] == StrRect{7} && MapHotspots[1] == Hotspot{});
  for (int other = 0; other < MapSlotCount; ++other)
    EXPECT_EQ(MapConnections(1, other) + MapConnections(other, 1), 2 * NoConnection) << other;
  EXPECT_EQ(MapConnections(0, 4), 0);
  for (int vl = 0; vl < VLSlotCount; ++vl) {
    EXPECT_EQ(VLDest(0, vl), vl < 3 ? OffMap : vl + 1);
    EXPECT_EQ(VLDest(1, vl), NotAnExit);
  }
  EXPECT_EQ(MapRows, (Rows{"000 A.btd", "001 UNUSED", "002 UNUSED"}));
  EXPECT_FALSE(TablesDirty);
  MapRows = Rows(40);
  EXPECT_TRUE(AddMapSlot() && !AddMapSlot() && MapRows.size() == 41);
}
