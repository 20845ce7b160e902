#include "TestFolder.h"
#include "data/BtdFile.h"

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
    SampleMap read = map;
    EXPECT_TRUE(ReadBtd(folder / "m", read.Header, read.VLs, read.Text).Done());
    EXPECT_TRUE(BtdBytes(read) == known + map.Rest) << length;
    EXPECT_TRUE(WriteBtd(folder / "m", 255, map.VLs, map.Text).Done());
    EXPECT_TRUE(folder.Get("m") == BtdBytes(map)) << length;
  }
  SampleMap map = maps[0];
  EXPECT_FALSE(ReadBtd(folder / "none", map.Header, map.VLs, map.Text).Done());
  EXPECT_FALSE(ReadBtdHead(folder / "none", map.Header, map.VLs).Done());
  EXPECT_TRUE(BtdBytes(map) == BtdBytes(maps[0]));
}
