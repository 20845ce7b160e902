#include "TableImages.h"
#include "TestFolder.h"

using namespace corvane;

struct TableImages : testing::Test {
  TableImages() { GamePath = Folder.Path.string(); }
  FileResult Read(bool patch) { return patch ? ReadPatchTables(Path) : ReadGameTables(); }
  FileResult Write(bool patch) { return patch ? WritePatchTables(Path) : WriteGameTables(); }
  const TestFolder Folder;
  const std::string Path = Folder / "a.crv", Names[2] = {"CC4.EXE", "a.crv"};
  const SampleTables Made = MakeSampleGame().Tables;
  const std::tuple<StrMapTable, StrArrowTable, ConnectionTable, HotspotTable> Zeros,
      Sample{Made.Tiles, Made.Arrows, Made.Connections, Made.Hotspots};
  std::tuple<StrMapTable&, StrArrowTable&, ConnectionTable&, HotspotTable&> Tables{
      StrMap, StrArrow, MapConnections, MapHotspots};
  const std::string Wholes[2] = {GameExeBytes(Made), PatchBytes(Made)};
  const std::size_t Starts[2][4] = {{1147264, 1148480, 1153780, 1200968}, {0, 1204, 3472, 10868}},
                    Sizes[4] = {1204, 2268, 7396, 344};
};

TEST_F(TableImages, MoveByteForByteAndACutFileReadsAsIfZerosFollowed) {
  for (const bool patch : {false, true}) {
    const auto& [map, arrow, connections, hotspots] = Starts[patch];
    for (const auto length : std::vector<std::size_t>{0, map + 1, arrow + 170, connections + 170,
                                                      hotspots + 343, hotspots + 344, 9999999}) {
      std::string bytes = Wholes[patch], images;
      bytes.resize(length, '.');
      Folder.Put(Names[patch], bytes);
      bytes.resize(std::max(length, hotspots + 344));
      for (int t = 0; t < 4; ++t) images += bytes.substr(Starts[patch][t], Sizes[t]);
      Tables = Sample;
      EXPECT_EQ(Read(patch).Failure, "");
      EXPECT_TRUE(PatchBytes({StrMap, StrArrow, MapConnections, MapHotspots}) == images) << length;
      for (int t = 0; t < 4; ++t)
        bytes.replace(Starts[patch][t], Sizes[t], Wholes[patch], Starts[patch][t], Sizes[t]);
      Tables = Sample;
      EXPECT_TRUE(Write(patch).Done() && Folder.Get(Names[patch]) == bytes) << length;
    }
  }
}

TEST_F(TableImages, AFieldIsFourBytesAtItsPlace) {
  const std::tuple<std::int32_t*, int, std::size_t> rows[] = {
      {&StrMap[3].Word0, 0, 84},       {&StrMap[42].Height, 0, 1200},
      {&StrArrow[0].Left, 1, 12},      {&StrArrow[80].Word2, 1, 2248},
      {&MapConnections(1, 0), 2, 4},   {&MapConnections(0, 1), 2, 172},
      {&MapHotspots[1].CenterX, 3, 8}, {&MapHotspots[1].CenterY, 3, 12}};
  for (const auto& [field, table, offset] : rows) {
    std::string bytes = Wholes[0];
    Folder.Put("CC4.EXE", bytes);
    bytes.replace(Starts[0][table] + offset, 4, "\x04\x03\x02\x81");
    Tables = Sample, *field = -0x7EFDFCFC;
    EXPECT_TRUE(WriteGameTables().Done() && Folder.Get("CC4.EXE") == bytes) << table << offset;
  }
}

TEST_F(TableImages, AReadThatFailsChangesNoTable) {
  EXPECT_FALSE(WriteGameTables().Done() || std::filesystem::exists(Folder / "CC4.EXE"));
  for (const bool patch : {false, true}) {
    std::filesystem::create_directory(Folder / Names[patch]);
    EXPECT_FALSE(Read(patch).Done() || Write(patch).Done());
    std::filesystem::remove(Folder / Names[patch]);
    EXPECT_NE(Read(patch).Failure.find(Folder / Names[patch]), std::string::npos);
    Folder.Put(Names[patch], Wholes[patch]);
    Tables = Zeros;
    int n = 0;
    for (FailFrom(0); !Read(patch).Done() && n < 9; FailFrom(++n)) EXPECT_TRUE(Tables == Zeros);
    EXPECT_TRUE(n >= 3 && Tables == Sample) << n;
  }
}
