#include "TestFolder.h"
#include "data/BtdFile.h"

using namespace corvane;

TEST(BtdFile, ReadsZerosPastTheEndAndPreservesTheRestOfTheFile) {
  const TestFolder folder;
  const std::vector<SampleMap> maps = MakeSampleGame().Maps;
  for (std::size_t length = 0; length < 9999; length += length < 400 ? 1 : 71) {
    SCOPED_TRACE(length);
    SampleMap map = maps[length % 43];
    map.VLs[0].Destination = static_cast<std::uint8_t>(length);
    map.VLs[1].Name.fill('n');
    map.VLs[2].Kind = static_cast<VLKind>(0x7F000032 + length);
    std::string known = 'x' + BtdBytes(map).substr(1, length);  // no magic number
    folder.Put("m", known);
    map.Header.MapIndex = 255;
    map.Rest = known.substr(std::min<std::size_t>(known.size(), 8526));
    known.resize(8526);
    const auto read = ReadBtd(folder / "m");
    ASSERT_EQ(MessageOf(read), "");
    EXPECT_TRUE(BtdBytes({"", read->Header, read->VLs, read->Text, ""}) == known);
    EXPECT_EQ(MessageOf(WriteBtd(folder / "m", 255, map.VLs, map.Text)), "");
    EXPECT_TRUE(folder.Get("m") == BtdBytes(map));
  }
}
