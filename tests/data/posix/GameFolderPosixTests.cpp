#include "GameFolder.h"
#include "MapCatalogue.h"
#include "TableImages.h"
#include "TestFolder.h"

using namespace corvane;

TEST(GameFolderPosix, APatchFileGoesWithTheInstalledGame) {
  const TestFolder home;
  const SampleTables tables = MakeSampleGame().Tables;
  const auto open = [&](const char* name) { return OpenTables(home / name, name); };
  const std::string key = "[Software\\\\Strategic Simulations Inc.\\\\Close Combat\\\\4.00]\n";
  ::setenv("HOME", home.Path.c_str(), 1);
  home.Put("my.CRV", PatchBytes(tables));
  GamePath = "before", OpenedFile = "CC4.EXE";
  EXPECT_EQ(open("my.CRV").Kind, FileKind::NoInstallPath);
  home.Put(".wine/dosdevices/c:/Games/cc4/CC4.EXE");
  home.Put(".wine/system.reg", key + "\"InstalledTo\"=\"C:\\\\GAMES\\\\CC4\"\n");
  EXPECT_FALSE(open("gone.crv").Read.Done() || GamePath != "before" || OpenedFile != "CC4.EXE");
  EXPECT_TRUE(open("my.CRV").Read.Done() && OpenedFile == "my.CRV" && StrMap == tables.Tiles);
  EXPECT_EQ(GamePath, home / ".wine/dosdevices/c:/Games/cc4");
  home.Put(".wine/system.reg", key + "\"InstalledTo\"=\"\"\n");
  EXPECT_TRUE(open("my.CRV").Read.Done() && GamePath.empty()) << "an empty value is one, too";
}

TEST(GameFolderPosix, OfSeveralSpellingsTheOneInUseWins) {
  const TestFolder folder;
  for (const char* name : {"CC4.EXE", "cc4.EXE", "maps/a.BTD", "maps/A.btd"}) folder.Put(name);
  GamePath = folder.Path.string();
  EXPECT_EQ(GameExePath(), folder / "CC4.EXE");
  OpenedFile = "cc4.EXE";
  EXPECT_EQ(GameExePath(), folder / "cc4.EXE");
  EXPECT_EQ(BtdPath("A.BTD", "a.BTD"), folder / "maps/a.BTD");
  EXPECT_EQ(BtdPath("A.BTD", "b.btd"), folder / "maps/A.btd");
  EXPECT_EQ(BtdPath("B.BTD", "a.BTD"), folder / "maps/B.BTD");
}
