#include "TestFolder.h"
#include "data/TableImages.h"

using namespace corvane;

struct TableImages : testing::Test {
  Result<GameTables> Read(bool patch) const {
    return patch ? ReadPatchTables(Path) : ReadGameTables(Exe);
  }
  Result<> Write(bool patch, const GameTables& tables) const {
    return patch ? WritePatchTables(Path, tables) : WriteGameTables(Exe, tables);
  }
  const TestFolder Folder;
  const std::string Path = Folder / "a.crv", Exe = Folder / "CC4.EXE",
                    Names[2] = {"CC4.EXE", "a.crv"};
  const GameTables Made = MakeSampleGame().Tables;
  const std::string Wholes[2] = {GameExeBytes(Made), PatchBytes(Made)};
  const std::size_t Starts[2][4] = {{1147264, 1148480, 1153780, 1200968}, {0, 1204, 3472, 10868}},
                    Sizes[4] = {1204, 2268, 7396, 344};
};

TEST_F(TableImages, AreCopiedByteForByteWithZerosPastTheEndOfAFile) {
  for (const bool patch : {false, true}) {
    const auto& [map, arrow, connections, hotspots] = Starts[patch];
    for (const auto length : {std::size_t{1999999}, hotspots + 344, hotspots + 343,
                              connections + 170, arrow + 170, map + 1, std::size_t{0}}) {
      std::string read = Wholes[patch].substr(0, length), written(length, '#'), images;
      Folder.Put(Names[patch], read);
      const auto tables = Read(patch);
      ASSERT_EQ(MessageOf(tables), "");
      Folder.Put(Names[patch], written);
      EXPECT_EQ(MessageOf(Write(patch, *tables)), "");
      read.resize(hotspots + 344);
      written.resize(std::max(length, read.size()));
      for (int t = 0; t < 4; ++t) {
        images += read.substr(Starts[patch][t], Sizes[t]);
        written.replace(Starts[patch][t], Sizes[t], read, Starts[patch][t], Sizes[t]);
      }
      EXPECT_TRUE(PatchBytes(*tables) == images) << length;
      EXPECT_TRUE(Folder.Get(Names[patch]) == written) << length;
    }
  }
}

TEST_F(TableImages, AFailedReadIsReportedAndAMissingGameIsNotCreated) {
  EXPECT_TRUE(MessageOf(Write(false, Made)).ends_with(" does not exist and was not created."));
  EXPECT_FALSE(std::filesystem::exists(Exe));
  for (const bool patch : {false, true}) {
    InjectedFault = nullptr;
    Folder.Put(Names[patch], Wholes[patch]);
    EXPECT_TRUE(*Read(patch) == Made);
    FailFrom(2);
    EXPECT_TRUE(MessageOf(Read(patch)).starts_with(Folder / Names[patch] + " could not be read: "));
  }
}
