#include "BtdFile.h"
#include "TestFolder.h"

using namespace corvane;

TEST(BtdFile, ReadsAsIfZerosFollowedAndKeepsWhatStandsBehindItsPart) {
  const TestFolder folder;
  const std::vector<SampleMap> maps = MakeSampleGame().Maps;
  for (std::size_t length = 0; length < 9999; length += length < 400 ? 1 : 71) {
    SampleMap map = maps[length % 43];
    map.VLs[0].Destination = static_cast<std::uint8_t>(length);
    map.VLs[1].Name.fill('n');
    std::string known = 'x' + BtdBytes(map).substr(1, length);  // no magic number
    folder.Put("m", known);
    map.Header.MapIndex = 255;
    map.Rest = known.substr(std::min<std::size_t>(known.size(), 8526));
    known.resize(8526);
    SampleMap read = map, head = map;
    EXPECT_TRUE(ReadBtd(folder / "m", read.Header, read.VLs, read.Text).Done());
    EXPECT_TRUE(BtdBytes(read) == known + map.Rest) << length;
    EXPECT_TRUE(ReadBtdHead(folder / "m", head.Header, head.VLs).Done());
    EXPECT_EQ(BtdBytes(head).substr(0, 325), known.substr(0, 325));
    EXPECT_TRUE(WriteBtd(folder / "m", 255, map.VLs, map.Text).Done());
    EXPECT_TRUE(folder.Get("m") == BtdBytes(map)) << length;
  }
}

TEST(BtdFile, IsMadeWhereThereIsNoneAndAFolderIsNone) {
  const TestFolder folder;
  const std::string path = folder / "m";
  auto [name, header, vls, text, rest] = MakeSampleGame().Maps[0];
  std::filesystem::create_directory(path);
  EXPECT_FALSE(BtdExists(path) || WriteBtd(path, 0, vls, text).Done());
  EXPECT_FALSE(ReadBtd(path, header, vls, text).Done() || ReadBtdHead(path, header, vls).Done());
  std::filesystem::remove(path);
  EXPECT_FALSE(BtdExists(path) || ReadBtd(path, header, vls, text).Done());
  EXPECT_TRUE(WriteBtd(path, 0, vls, text).Done() && BtdExists(path));
  EXPECT_TRUE(folder.Get("m") == BtdBytes(MakeSampleGame().Maps[0]));
}
