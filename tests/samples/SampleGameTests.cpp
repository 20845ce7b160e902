#include "samples/SampleGame.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace corvane;

struct TheSampleGame : testing::Test {
  SampleGame game = MakeSampleGame();
  GameTables& tables = game.Tables;
};

static bool Overlap(const StrRect& a, const StrRect& b) {
  return a.Left < b.Left + b.Width && b.Left < a.Left + a.Width && a.Top < b.Top + b.Height &&
         b.Top < a.Top + a.Height;
}

TEST_F(TheSampleGame, HoldsOneTileNumberOfThreeDigits) {
  int above = 0;
  for (const SampleMap& map : game.Maps) {
    for (const VictoryLocation& vl : map.VLs) {
      above += static_cast<int>(vl.TileX > 99) + static_cast<int>(vl.TileY > 99);
      EXPECT_NE(vl.TileX, vl.TileY) << map.FileName;
    }
  }
  EXPECT_EQ(above, 1);
}

TEST_F(TheSampleGame, KeepsEachArrowOffTheTilesThatItJoins) {
  for (int from = 0; from < MapSlotCount; ++from) {
    for (int to = 0; to < MapSlotCount; ++to) {
      if (tables.Connections(from, to) == NoConnection) continue;
      const StrRect& arrow = tables.Arrows[tables.Connections(from, to)];
      EXPECT_FALSE(Overlap(arrow, tables.Tiles[from])) << from << " to " << to;
      EXPECT_FALSE(Overlap(arrow, tables.Tiles[to])) << from << " to " << to;
      EXPECT_GE(std::min(arrow.Width, arrow.Height), 8) << from << " to " << to;
    }
  }
}

// The places of the exits to the neighbours in the north, east, south and west, and off the map.
TEST_F(TheSampleGame, PutsEachExitNearTheEdgeThatItLeadsOver) {
  const auto near = [](int offset, int place) {
    if (offset < -48) return place < 10;
    if (offset > 48) return place >= 90 && place < 100;
    return place >= 30 && place < 70;
  };
  for (int slot = 0; slot < MapSlotCount; ++slot) {
    const SampleMap& map = game.Maps[static_cast<std::size_t>(slot)];
    const StrRect& tile = tables.Tiles[slot];
    for (const VictoryLocation& vl : map.VLs) {
      if (vl.Kind != VLKind::Exit) continue;
      StrRect there{.Left = tile.Left < 400 ? -100 : 900, .Top = tile.Top};
      if (vl.Destination != OffMap) there = tables.Tiles[vl.Destination];
      EXPECT_TRUE(near(there.Left - tile.Left, vl.TileX)) << map.FileName << " " << vl.Name.data();
      EXPECT_TRUE(near(there.Top - tile.Top, vl.TileY)) << map.FileName << " " << vl.Name.data();
    }
  }
}
