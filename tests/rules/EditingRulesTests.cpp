#include "TestFolder.h"
#include "rules/FieldEntry.h"
#include "rules/MapSlots.h"

using namespace corvane;

using Rows = std::vector<std::string>;

struct FieldEntry : testing::Test {
  FieldEntry() {
    ResetTables();
    Beep = [this] { ++Beeps; };
    StrMap[42].Top = -5;
  }
  ~FieldEntry() override {
    Beep = [] {};
  }
  int Beeps = 0;
};

TEST_F(FieldEntry, StoresDigitsUpToTheLargestNumber) {
  const std::pair<const char*, std::int32_t> rows[] = {
      {"", 0}, {"007", 7}, {"2147483647", 2147483647}, {"0000000000000000000042", 42}};
  for (const auto& [text, number] : rows) {
    TablesDirty = false;
    EXPECT_TRUE(EnterField(MapTop, 42, text)) << text;
    EXPECT_EQ(StrMap[42].Top, number);
    EXPECT_TRUE(TablesDirty) << text;
  }
  EXPECT_EQ(Beeps, 0);
}

TEST_F(FieldEntry, BeepsOnceAtAnyOtherTextAndStoresNothing) {
  for (const char* text : {"2147483648", "-1", "99999999999999999999999999", " 1", "1 ", "1/", ":",
                           "a.b", "\xD9\xA1"}) {
    Beeps = 0;
    EXPECT_FALSE(EnterField(MapTop, 42, text)) << text;
    EXPECT_EQ(Beeps, 1) << text;
  }
  EXPECT_EQ(StrMap[42].Top, -5);
  EXPECT_FALSE(TablesDirty);
}

TEST(AddMapSlot, InsertsInTextOrderUpTo41Rows) {
  ResetTables();
  MapRows = {"000 A.btd", "007 B.btd"};
  EXPECT_TRUE(AddMapSlot());
  EXPECT_EQ(MapRows, (Rows{"000 A.btd", "002", "007 B.btd"}));
  MapRows = Rows(40);
  EXPECT_TRUE(AddMapSlot());
  EXPECT_EQ(MapRows.back(), "040");
  EXPECT_FALSE(AddMapSlot());
  EXPECT_EQ(MapRows.size(), 41U);
}

// Two maps with files and a slot without one, with tiles, a hotspot and links in the tables.
struct DeletedMapSlots : testing::Test {
  DeletedMapSlots() {
    GamePath = Folder / "";
    Folder.Put("Maps/A.btd", "a");
    Folder.Put("Maps/B.btd", "b");
    MapRows = {"000 A.btd", "009 B.btd", "010"};
    MapRows.shrink_to_fit();  // so that a sanitizer notices an access past the end
    StrMap[0] = StrMap[1] = StrArrow[1] = Rect;
    MapHotspots[1] = {8, 9};
    for (int vl = 0; vl < VLSlotCount; ++vl) VLDest(0, vl) = vl;
  }
  const TestFolder Folder;
  const StrRect Rect{7, 6, 5, 4, 3, 2, 1};
};

TEST_F(DeletedMapSlots, LeaveNoLinks) {
  EXPECT_TRUE(DeleteMapSlot(1).Done());
  EXPECT_EQ(StrMap[1], StrRect{7});  // the first word stays
  EXPECT_EQ(MapHotspots[1], Hotspot{});
  EXPECT_EQ(StrMap[0], Rect);
  EXPECT_EQ(StrArrow[1], Rect);
  for (int other = 0; other < MapSlotCount; ++other) {
    EXPECT_EQ(MapConnections(1, other), NoConnection) << other;
    EXPECT_EQ(MapConnections(other, 1), NoConnection) << other;
  }
  EXPECT_EQ(MapConnections(0, 4), 0);
  for (int vl = 0; vl < VLSlotCount; ++vl) {
    EXPECT_EQ(VLDest(0, vl), vl == 1 ? OffMap : vl) << vl;
    EXPECT_EQ(VLDest(1, vl), NotAnExit) << vl;
  }
  EXPECT_EQ(Folder.Get("Maps/B.btd"), BtdBytes({"", {BtdMagic, 9}, {}, {}, ""}));
  EXPECT_EQ(Folder.Get("Maps/A.btd"), "a");
  EXPECT_EQ(MapRows, (Rows{"000 A.btd", "001 UNUSED", "010"}));
}

TEST_F(DeletedMapSlots, CreateNoFileAndTouchNoOtherSlot) {
  Folder.Put("Maps/UNUSED", "mine");
  std::filesystem::remove(Folder / "Maps/B.btd");
  for (const int map : {1, 1, 2, 3, 42, -1, MapSlotCount})
    EXPECT_TRUE(DeleteMapSlot(map).Done()) << map;
  EXPECT_EQ(Folder.Get("Maps/UNUSED"), "mine");
  EXPECT_FALSE(std::filesystem::exists(Folder / "Maps/B.btd"));
  EXPECT_EQ(MapRows, (Rows{"000 A.btd", "001 UNUSED", "002 UNUSED"}));
}
