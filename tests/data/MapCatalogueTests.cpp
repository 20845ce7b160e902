#include "MapCatalogue.h"
#include "TestFolder.h"
#include "platform/FolderScan.h"

using namespace corvane;

struct MapCatalogue : testing::Test {
  MapCatalogue() { GamePath = Folder / ""; }
  void PutMap(const std::string& name, int index) const {  // all its exits lead to 33
    SampleMap map{{}, {0, static_cast<std::uint8_t>(index)}, {}, {}, {}};
    map.VLs.fill({.Kind = 50, .Destination = 33});
    Folder.Put("Maps/" + name, BtdBytes(map));
  }
  const TestFolder Folder;
};

TEST_F(MapCatalogue, OrdersRowsByNumberThenNameAndHoldsNoMoreThanTheTables) {
  PutMap("b.btd", 2), PutMap("C.BTD", 2), PutMap("x.btd", 43), PutMap("y.btd", 255);
  VLDest(7, 3) = 77;
  EXPECT_EQ(LoadMapCatalogue() + LoadMapCatalogue(), "");
  EXPECT_EQ(MapRows, (decltype(MapRows){"002 b.btd", "002 C.BTD", "043 x.btd", "255 y.btd"}));
  EXPECT_EQ(MapRow(-1) + MapRow(3) + MapRow(4), "255 y.btd");
  EXPECT_TRUE(RowMapIndex("0127up") == 12 && RowMapIndex("01") == -1 && RowMapIndex("-12") == -1);
  EXPECT_TRUE(VLDest(2, 0) == 33 && VLDest(7, 3) == 77 && VLDest(42, 9) == 0);
  for (int file = 0; file < 45; ++file) PutMap(ThreeDigits(file) + ".bTd", file);
  EXPECT_TRUE(LoadMapCatalogue().empty() && MapRows.size() == 43);
  EXPECT_TRUE(ArrowRows.size() == 81 && ArrowRows[80] == "080");
}

TEST_F(MapCatalogue, OnlyAnExitLeadsSomewhere) {
  VictoryLocations vls{};
  for (int i = 0; i < 256; ++i) {
    vls[8].Destination = vls[9].Destination = static_cast<std::uint8_t>(i);
    vls[8].Kind = 50, vls[9].Kind = i == 50 ? 50 + 256 : i;
    SetDestinations(42, vls);
    EXPECT_TRUE(VLDest(42, 8) == i && VLDest(42, 9) == -1) << i;
  }
}

TEST_F(MapCatalogue, SaysWhichFilesItCannotReadAndThatThereAreNone) {
  for (const char* other : {"x.txt", "Maps/x.txt"}) {
    Folder.Put(other), MapRows = {"000 old.btd"};
    EXPECT_NE(LoadMapCatalogue().find(GamePath + Separator + "Maps"), std::string::npos);
    EXPECT_TRUE(MapRows.empty());
  }
  for (const char* name : {"a.btd", "b.btd"}) PutMap(name, 0);
  FailFrom(3);  // the steps of one file
  const std::string message = LoadMapCatalogue();
  ASSERT_EQ(MapRows.size(), 1U) << message;
  EXPECT_EQ(message.find(RowFileName(MapRows[0])), message.npos);
  EXPECT_NE(message.find(MapRows[0] == "000 a.btd" ? "b.btd" : "a.btd"), message.npos);
}
