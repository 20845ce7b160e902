#include "ConsistencyCheck.h"

#include <gtest/gtest.h>

#include <functional>

#include "MapCatalogue.h"
#include "ResetTables.h"
#include "StrategicTables.h"

using namespace corvane;

// A sound network of four maps with rows and no exits; the other slots are sound and have no row.
class ConsistencyCheck : public testing::Test {
 protected:
  ConsistencyCheck() {
    ResetTables();
    MapRows = {"000 Alpha.btd", "001 Bravo.btd", "002 Charlie.btd", "003 Delta.btd"};
    for (int map = 0; map < MapSlotCount; ++map) {
      StrMap[map].Width = StrMap[map].Height = 1;
      for (int to = 0; to < MapSlotCount; ++to) MapConnections(map, to) = NoConnection;
      for (int vl = 0; vl < VLSlotCount; ++vl) VLDest(map, vl) = NotAnExit;
    }
    for (int arrow = 0; arrow < ArrowSlotCount; ++arrow) {
      StrArrow[arrow].Width = StrArrow[arrow].Height = 1;
    }
  }
};

TEST_F(ConsistencyCheck, LinkFindingsComeInOrderAndOncePerExit) {
  EXPECT_EQ(CheckTables(), "");
  VLDest(0, 0) = 1;
  VLDest(1, 3) = VLDest(1, 4) = 2;
  MapConnections(1, 2) = 4;
  VLDest(2, 0) = 3;
  MapConnections(2, 3) = 6;
  MapConnections(3, 2) = -2;  // any value but -1 is a connection
  VLDest(3, 9) = OffMap;
  VLDest(3, 5) = 3;
  VLDest(3, 6) = 77;   // names no map slot
  VLDest(41, 0) = 42;  // neither has a row
  EXPECT_EQ(CheckTables(),
            "\r\nNo STRARROW defined for BTD link from 000 Alpha.btd to map 001 Bravo.btd via VL0"
            "\r\nNo reciprocating STRARROW defined for link from 1 to map 2"
            "\r\nNo reciprocating STRARROW defined for link from 1 to map 2"
            "\r\nNo reciprocating BTD link defined for connection from map 002 Charlie.btd to map "
            "003 Delta.btd"
            "\r\nNo STRARROW defined for BTD link from 003 Delta.btd to map 003 Delta.btd via VL5"
            "\r\nNo STRARROW defined for BTD link from 003 Delta.btd to map  via VL6"
            "\r\nNo STRARROW defined for BTD link from  to map  via VL0");
  MapConnections(3, 3) = 0;
  MapConnections(0, 1) = MapConnections(1, 0) = 80;
  VLDest(1, 9) = 0;
  VLDest(1, 3) = VLDest(1, 4) = VLDest(3, 6) = VLDest(41, 0) = NotAnExit;
  VLDest(3, 9) = 2;
  EXPECT_EQ(CheckTables(), "");
}

TEST_F(ConsistencyCheck, RangesAreInclusiveAndTheFirstFaultOfASlotHidesTheOthers) {
  struct Row {
    std::int32_t X, Y;
    bool Fits;
  };
  for (const Row& row : {Row{0, 0, true},
                         {800, 600, true},
                         {801, 600, false},
                         {800, 601, false},
                         {-1, 0, false},
                         {0, -1, false},
                         {INT32_MIN, INT32_MAX, false}}) {
    SCOPED_TRACE(std::to_string(row.X) + "," + std::to_string(row.Y));
    StrMap[42].Height = row.Fits ? 1 : 0;
    StrArrow[80].Width = row.Fits ? 1 : 0;
    MapHotspots[42] = {row.X, row.Y};
    EXPECT_EQ(CheckTables(), row.Fits ? ""
                                      : "\r\nInvalid hotspot coordinates for STRMAP 42"
                                        "\r\nInvalid size for STRARROW 80");
    MapHotspots[42] = {};
    StrMap[42].Left = StrArrow[80].Left = row.X;
    StrMap[42].Top = StrArrow[80].Top = row.Y;
    EXPECT_EQ(CheckTables(), row.Fits ? ""
                                      : "\r\nInvalid tile coordinates for STRMAP 42"
                                        "\r\nInvalid coordinates for STRARROW 80");
    StrMap[42].Left = StrArrow[80].Left = StrMap[42].Top = StrArrow[80].Top = 0;
  }
  StrMap[7] = {.Width = -1, .Height = 1};
  StrMap[8] = {.Width = 1, .Height = 0};
  StrMap[42] = {.Width = INT32_MAX, .Height = INT32_MAX};
  StrArrow[0] = {.Width = 1, .Height = 0};
  StrArrow[80] = {.Width = 1, .Height = 1};
  EXPECT_EQ(CheckTables(),
            "\r\nInvalid size for STRMAP 7\r\nInvalid size for STRMAP 8"
            "\r\nInvalid size for STRARROW 0");
}
