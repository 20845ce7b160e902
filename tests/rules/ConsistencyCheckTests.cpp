#include "rules/ConsistencyCheck.h"

#include <gtest/gtest.h>

#include "TestFolder.h"

using namespace corvane;

// A sound network of four maps with rows and no exits; the other slots are sound and have no row.
struct ConsistencyCheck : testing::Test {
  ConsistencyCheck() {
    ResetTables();
    MapRows = {"000 A.btd", "001 B.btd", "002 C.btd", "003 D.btd"};
    for (int map = 0; map < MapSlotCount; ++map) {
      StrMap[map] = {.Width = 1, .Height = 1};
      for (int to = 0; to < MapSlotCount; ++to) MapConnections(map, to) = NoConnection;
      for (int vl = 0; vl < VLSlotCount; ++vl) VLDest(map, vl) = NotAnExit;
    }
    for (int arrow = 0; arrow < ArrowSlotCount; ++arrow) StrArrow[arrow] = StrMap[0];
  }
};

TEST_F(ConsistencyCheck, FindingsComeInOrderAndOncePerExit) {
  EXPECT_EQ(CheckTables(), "");
  VLDest(0, 0) = 1;
  VLDest(1, 3) = VLDest(1, 4) = 2;
  MapConnections(1, 2) = 4;
  StrMap[1].Width = 0;
  VLDest(2, 0) = 3;
  MapConnections(2, 3) = 6;
  MapConnections(3, 2) = -2;  // any value but -1 is a connection
  VLDest(3, 9) = OffMap;
  VLDest(3, 5) = 3;
  VLDest(3, 6) = 77;   // names no map slot
  VLDest(41, 0) = 42;  // neither has a row
  EXPECT_EQ(
      CheckTables(),
      "\r\nNo STRARROW defined for BTD link from 000 A.btd to map 001 B.btd via VL0"
      "\r\nNo reciprocating STRARROW defined for link from 1 to map 2"
      "\r\nNo reciprocating STRARROW defined for link from 1 to map 2"
      "\r\nInvalid size for STRMAP 1"
      "\r\nNo reciprocating BTD link defined for connection from map 002 C.btd to map 003 D.btd"
      "\r\nNo STRARROW defined for BTD link from 003 D.btd to map 003 D.btd via VL5"
      "\r\nNo STRARROW defined for BTD link from 003 D.btd to map  via VL6"
      "\r\nNo STRARROW defined for BTD link from  to map  via VL0");
}

TEST_F(ConsistencyCheck, TheLastSlotAndNegativeArrowsCount) {
  VLDest(0, 9) = 1;
  VLDest(1, 9) = 0;  // the exit back
  MapConnections(0, 1) = MapConnections(1, 0) = -2;
  EXPECT_EQ(CheckTables(), "");
  MapConnections(0, 1) = NoConnection;
  EXPECT_EQ(CheckTables().find("via VL0"), std::string::npos);
  EXPECT_NE(CheckTables().find("000 A.btd to map 001 B.btd via VL9"), std::string::npos);
}

TEST_F(ConsistencyCheck, RangesAreInclusiveAndTheFirstFaultOfASlotHidesTheOthers) {
  const std::tuple<std::int32_t*, std::int64_t, std::int64_t, std::string> rows[] = {
      {&MapHotspots[42].CenterX, 0, 800, "hotspot coordinates for STRMAP 42"},
      {&MapHotspots[42].CenterY, 0, 600, "hotspot coordinates for STRMAP 42"},
      {&StrMap[42].Left, 0, 800, "tile coordinates for STRMAP 42"},
      {&StrMap[42].Top, 0, 600, "tile coordinates for STRMAP 42"},
      {&StrMap[42].Width, 1, INT32_MAX, "size for STRMAP 42"},
      {&StrMap[42].Height, 1, INT32_MAX, "size for STRMAP 42"},
      {&StrArrow[80].Left, 0, 800, "coordinates for STRARROW 80"},
      {&StrArrow[80].Top, 0, 600, "coordinates for STRARROW 80"},
      {&StrArrow[80].Width, 1, INT32_MAX, "size for STRARROW 80"},
      {&StrArrow[80].Height, 1, INT32_MAX, "size for STRARROW 80"}};
  for (const auto& [field, min, max, what] : rows) {
    for (const std::int64_t number : {min - 1, max + 1, min, max}) {
      *field = static_cast<std::int32_t>(number);  // the one above the largest is the smallest
      const bool fits = number >= min && number <= max;
      EXPECT_EQ(CheckTables(), fits ? "" : "\r\nInvalid " + what) << number;
    }
  }
  StrMap[0] = StrMap[42] = StrArrow[0] = StrArrow[80] = {.Left = -1};  // and no size
  MapHotspots[42].CenterY = -1;
  EXPECT_EQ(CheckTables(),
            "\r\nInvalid tile coordinates for STRMAP 0"
            "\r\nInvalid hotspot coordinates for STRMAP 42"
            "\r\nInvalid coordinates for STRARROW 0\r\nInvalid coordinates for STRARROW 80");
}
