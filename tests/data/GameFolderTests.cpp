#include "ConsistencyCheck.h"
#include "GameFolder.h"
#include "MapCatalogue.h"
#include "TestFolder.h"

using namespace corvane;
using enum FileKind;

TEST(GameFolder, TellsTheKindOfFileByItsName) {
  const std::pair<const char*, FileKind> rows[] = {
      {"CC4.EXE", GameExeFile},   {"cc4.Exe", GameExeFile}, {".crv", PatchFile},
      {"cc4.exe.CrV", PatchFile}, {"XCC4.EXE", OtherFile},  {"CC4.EXE ", OtherFile},
      {"a.crv.bak", OtherFile},   {"crv", OtherFile},       {"", OtherFile}};
  for (const auto& [title, kind] : rows) EXPECT_EQ(KindOfFile(title), kind) << title;
}

TEST(GameFolder, OpensAWholeGameOrChangesNothing) {
  const TestFolder folder;
  const SampleGame game = MakeSampleGame();
  ASSERT_TRUE(WriteSampleGame(folder.Path, game).Done());
  std::filesystem::rename(folder / "CC4.EXE", folder / "cc4.Exe");
  TablesDirty = true;
  EXPECT_TRUE(OpenTables(folder / "cc4.Exe", "cc4.Exe").Read.Done() && TablesDirty);
  EXPECT_TRUE(LoadMapCatalogue().empty() && CheckTables().empty());
  for (const SampleMap& map : game.Maps)
    EXPECT_EQ(RowFileName(MapRow(map.Header.MapIndex)), map.FileName);
  std::filesystem::create_directories(folder / "a/CC4.EXE");
  for (const char* name : {"a/CC4.EXE", "gone/CC4.EXE"})
    EXPECT_FALSE(OpenTables(folder / name, "CC4.EXE").Read.Done());
  EXPECT_EQ(OpenTables(folder / "a.txt", "a.txt").Kind, OtherFile);
  EXPECT_EQ(GamePath + OpenedFile, folder / "cc4.Exe");
  EXPECT_TRUE(StrMap == game.Tables.Tiles && MapHotspots == game.Tables.Hotspots);
}
