#include "TestFolder.h"
#include "base/FolderScan.h"
#include "data/GameFolder.h"
#include "data/MapCatalogue.h"

using namespace corvane;
using enum FileKind;

TEST(GameFolder, FindsTheKindOfAFileFromItsName) {
  const std::pair<const char*, FileKind> rows[] = {
      {"CC4.EXE", GameExeFile},   {"cc4.Exe", GameExeFile}, {".crv", PatchFile},
      {"cc4.exe.CrV", PatchFile}, {"XCC4.EXE", OtherFile},  {"CC4.EXE ", OtherFile},
      {"a.crv.bak", OtherFile},   {"crv", OtherFile},       {"", OtherFile}};
  for (const auto& [title, kind] : rows) EXPECT_EQ(KindOfFile(title), kind) << title;
}

struct MapCatalogue : testing::Test {
  MapCatalogue() { GamePath = Folder / ""; }
  void PutMap(const std::string& name, int index) const {  // its eight exits lead to 233
    SampleMap map{{}, {0, static_cast<std::uint8_t>(index)}, {}, {}, {}};
    map.VLs.fill({.Kind = VLKind::Exit, .Destination = 233});
    map.VLs[8].Kind = VLKind{49};
    map.VLs[9].Kind = VLKind{50 + 256};
    Folder.Put("Maps/" + name, BtdBytes(map));
  }
  const TestFolder Folder;
};

TEST_F(MapCatalogue, OrdersRowsByNumberThenName) {
  const std::pair<const char*, int> files[] = {
      {"b.btd", 2}, {"C.BTD", 2}, {"x.btd", 43}, {"y.btd", 255}};
  for (const auto& [name, index] : files) PutMap(name, index);
  const std::vector<std::string> rows = {"002 b.btd", "002 C.BTD", "043 x.btd", "255 y.btd"};
  for (int time = 0; time < 2; ++time) {
    EXPECT_TRUE(LoadMapCatalogue().Failures.empty());
    EXPECT_EQ(MapRows, rows);
    EXPECT_EQ(ArrowRows.size(), 81U);
  }
  EXPECT_EQ(ArrowRows[80], "080");
  EXPECT_EQ(MapRow(3), "255 y.btd");
  EXPECT_EQ(MapRow(4), "");
  EXPECT_EQ(MapRow(-1), "");
}

TEST_F(MapCatalogue, SetsDestinationsOfExitsAndKeepsThoseOfMapsWithoutAFile) {
  PutMap("b.btd", 2);
  PutMap("x.btd", 43);
  VLDest(7, 3) = 77;
  EXPECT_TRUE(LoadMapCatalogue().Failures.empty());
  for (int vl = 0; vl < 10; ++vl) EXPECT_EQ(VLDest(2, vl), vl < 8 ? 233 : -1) << vl;
  EXPECT_EQ(VLDest(7, 3), 77);
  EXPECT_EQ(VLDest(42, 9), 0);
}

TEST_F(MapCatalogue, HoldsNoMoreRowsThanTheTables) {
  for (int file = 0; file < 45; ++file) PutMap(ThreeDigits(file) + ".bTd", file);
  EXPECT_TRUE(LoadMapCatalogue().FoundFiles);
  EXPECT_EQ(MapRows.size(), 43U);
}

TEST(MapRows, HoldANumberAndAFileName) {
  const std::tuple<const char*, int, const char*> rows[] = {
      {"012 A.btd", 12, "A.btd"}, {"3127up", 312, "up"}, {"040", 40, ""}, {"007 UNUSED", 7, ""},
      {"007 x", 7, "x"},          {"-12 a", -1, "a"},    {"01", -1, ""},  {"", -1, ""}};
  for (const auto& [row, index, name] : rows) {
    EXPECT_EQ(RowMapIndex(row), index) << row;
    EXPECT_EQ(RowFileName(row), name) << row;
  }
}
