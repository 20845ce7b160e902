#include <gtest/gtest.h>

#include "ConnectionEditing.h"
#include "FieldEntry.h"
#include "MapCatalogue.h"
#include "MapSlots.h"
#include "ResetTables.h"
#include "StrategicTables.h"

using namespace corvane;

using Rows = std::vector<std::string>;

TEST(ConnectionEditing, WorksOnOneDirectionAndOnlyAnArrowMarksTheTables) {
  ResetTables();
  for (int to = 0; to < MapSlotCount; ++to) MapConnections(1, to) = NoConnection;
  MapRows = {"000 A.btd", "001 B.btd", "002 C.btd"};
  EXPECT_EQ(ConnectionRows(1), Rows{});
  MapConnections(2, 1) = 33;
  EXPECT_FALSE(AddConnection(1, 1));
  EXPECT_TRUE(AddConnection(1, 2));
  EXPECT_TRUE(AddConnection(1, 0));
  MapConnections(1, 42) = -2;
  EXPECT_EQ(ConnectionRows(1), (Rows{"000 A.btd", "002 C.btd", ""}));
  EXPECT_EQ(MapConnections(1, 1), NoConnection);
  DeleteConnection(1, 0);
  EXPECT_EQ(ConnectionRows(1), (Rows{"002 C.btd", ""}));
  EXPECT_FALSE(TablesDirty);
  AssignArrow(1, 2, 0);
  EXPECT_TRUE(TablesDirty);
  AssignArrow(1, 2, 80);
  EXPECT_EQ(MapConnections(1, 2), 80);
  EXPECT_TRUE(AddConnection(1, 2));
  EXPECT_EQ(MapConnections(1, 2), 0);
  EXPECT_EQ(MapConnections(2, 1), 33);
  EXPECT_TRUE(CanAddConnection(8) && !CanAddConnection(9));
}

TEST(FieldEntry, StoresDigitsAndRefusesEverythingElseWithOneBeep) {
  struct Row {
    const char* Text;
    bool Accepted;
    std::int32_t Number;
  };
  int beeps = 0;
  Beep = [&] { ++beeps; };
  for (const Row& row : {Row{"", true, 0},
                         {"007", true, 7},
                         {"2147483647", true, 2147483647},
                         {"0000000000000000000042", true, 42},
                         {"2147483648", false, 0},
                         {"-1", false, 0},
                         {"99999999999999999999999999", false, 0},
                         {"1.5", false, 0},
                         {" 1", false, 0},
                         {"1 ", false, 0},
                         {"/", false, 0},
                         {":", false, 0},
                         {"a b c", false, 0},
                         {"\xD9\xA1", false, 0}}) {  // a digit, but of another script
    SCOPED_TRACE(row.Text);
    ResetTables();
    StrMap[42].Top = -5;
    beeps = 0;
    EXPECT_EQ(EnterField(MapTop, 42, row.Text), row.Accepted);
    EXPECT_EQ(StrMap[42].Top, row.Accepted ? row.Number : -5);
    EXPECT_EQ(TablesDirty, row.Accepted);
    EXPECT_EQ(beeps, row.Accepted ? 0 : 1);
    TablesDirty = false;
    EXPECT_EQ(EnterField(MapTop, -1, row.Text), row.Accepted);
    EXPECT_FALSE(TablesDirty);
  }
  Beep = [] {};
}

TEST(MapSlots, AddingStopsAt41RowsAndKeepsTextOrder) {
  ResetTables();
  for (int map = 0; map < 40; ++map) MapRows.push_back(ThreeDigits(map) + " A.btd");
  EXPECT_TRUE(AddMapSlot());
  EXPECT_EQ(MapRows.back(), "040");
  EXPECT_FALSE(AddMapSlot());
  EXPECT_EQ(MapRows.size(), 41U);
  MapRows = {"000 A.btd", "007 B.btd"};
  EXPECT_TRUE(AddMapSlot());
  EXPECT_EQ(MapRows, (Rows{"000 A.btd", "002", "007 B.btd"}));
}

TEST(MapSlots, ClearingLeavesWord0AndNothingThatLeadsThere) {
  ResetTables();
  MapRows = {"000 A.btd", "001"};
  StrMap[1] = {1, 2, 3, 4, 5, 6, 7};
  StrMap[0] = StrArrow[1] = {7, 6, 5, 4, 3, 2, 1};
  MapHotspots[1] = {8, 9};
  for (int vl = 0; vl < VLSlotCount; ++vl) VLDest(0, vl) = vl % 3;
  EXPECT_TRUE(DeleteMapSlot(1).Done());
  EXPECT_EQ(StrMap[1], StrRect{1});
  EXPECT_EQ(StrMap[0], (StrRect{7, 6, 5, 4, 3, 2, 1}));
  EXPECT_EQ(StrArrow[1], StrMap[0]);
  EXPECT_EQ(MapHotspots[1], Hotspot{});
  for (int other = 0; other < MapSlotCount; ++other) {
    EXPECT_EQ(MapConnections(1, other), NoConnection);
    EXPECT_EQ(MapConnections(other, 1), NoConnection);
  }
  EXPECT_EQ(MapConnections(0, 2), 0);
  for (int vl = 0; vl < VLSlotCount; ++vl) {
    EXPECT_EQ(VLDest(0, vl), vl % 3 == 1 ? OffMap : vl % 3);
    EXPECT_EQ(VLDest(1, vl), NotAnExit);
  }
  EXPECT_EQ(MapRows, (Rows{"000 A.btd", "001 UNUSED"}));
  EXPECT_FALSE(TablesDirty);
  EXPECT_TRUE(DeleteMapSlot(-1).Done());
  EXPECT_EQ(MapRows.front(), "000 A.btd");
}
