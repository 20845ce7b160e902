// Files, folders and texts as every system has to give them.
#include <algorithm>

#include "TestFolder.h"
#include "base/AnsiText.h"
#include "base/FolderScan.h"
#include "base/LetterCase.h"

using namespace corvane;

TEST(RawFile, FinishesShortTransfersAndRefusesWhatCannotBe) {
  const TestFolder folder;
  folder.Put("f", "abcdefghij");
  RawFile file;
  for (const auto& [name, mode] : {std::pair("f", OpenMode::Create), {"", OpenMode::Change}})
    EXPECT_TRUE(file.Open(folder / name, mode));
  ASSERT_FALSE(file.Open(folder / "f", OpenMode::Change));
  EXPECT_EQ(file.Open(folder / "f", OpenMode::Read), std::errc::device_or_resource_busy);
  EXPECT_TRUE(!file.SetLength(10) && file.Changed());
  std::size_t most = 3, read = 99;  // 3 is too much for the last step of each transfer
  std::string asked, text(12, '.');
  InjectedFault = [&](FileStep step, std::size_t& bytes) {
    return asked += "OLRWSFCX"[static_cast<int>(step)], bytes = most, std::error_code();
  };
  const auto buffer = std::as_writable_bytes(std::span(text));
  EXPECT_FALSE(file.WriteAt(1, std::as_bytes(std::span("123456"))));
  EXPECT_FALSE(file.ReadAt(0, buffer, read));
  EXPECT_EQ(text.substr(0, read), std::string("a123456\0ij", 10));
  for (const std::uint64_t offset : {~0ULL, ~0ULL - 11, ~0ULL / 2 - 11}) {
    EXPECT_EQ(file.WriteAt(offset, buffer), std::errc::value_too_large);
    EXPECT_EQ(file.ReadAt(offset, buffer, read = 99), std::errc::value_too_large);
    EXPECT_EQ(read, 0U);
  }
  EXPECT_EQ(file.SetLength(~0ULL / 2 + 1), std::errc::value_too_large);
  EXPECT_NE(file.SetLength(~0ULL / 2), std::errc::value_too_large);
  RawFile reader;
  EXPECT_TRUE(!reader.Open(folder / "f", OpenMode::Read) && reader.WriteAt(0, buffer));
  most = 0;
  EXPECT_TRUE(file.WriteAt(0, buffer)) << "or it would never end";
  EXPECT_FALSE(file.SetLength(10));
  EXPECT_EQ(asked, "WWWRRRRRSOWWS");
}

TEST(FolderScan, TakesOrdinaryFilesByExtensionUpToTheLimit) {
  const TestFolder folder;
  for (const char* name : {"a.btd", "B.BTD", "c.btd~", "d.btdx", "btd", "e.btd/x"})
    folder.Put(name);
  for (int i = 0; i < 200; ++i) folder.Put(std::to_string(i) + ".many");
  std::vector<std::string> names, two, many;
  EXPECT_TRUE(!ScanFolder(folder.Path.string(), ".many", 999, many) && many.size() == 200);
  EXPECT_FALSE(ScanFolder(folder.Path.string(), ".Btd", 2, two));
  EXPECT_FALSE(ScanFolder(folder.Path.string(), ".Btd", 9, names));
  EXPECT_TRUE(two.size() == 2 && ScanFolder(folder / "none", ".btd", 9, two));
  std::ranges::sort(names, LessIgnoringCase);
  EXPECT_EQ(names, (std::vector<std::string>{"a.btd", "B.BTD"}));
  EXPECT_EQ(ToUpper("`az{@AZ[\xE4"), "`AZ{@AZ[\xE4");
  EXPECT_TRUE(OrdinaryFileExists(folder / "a.btd") && !OrdinaryFileExists(folder / "e.btd"));
}

TEST(AnsiText, KeepsAllBytesAndMarksWhatItLacksAndWhatIsNoUtf8) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(TextToAnsi(AnsiToText(bytes)), bytes);
  EXPECT_EQ(AnsiToText(bytes.substr(0x7F, 0x22)),
            "\u007F€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ\u00A0");
  EXPECT_EQ(TextToAnsi("ÿ Ā \u0080 \uD7FF \uE000 \u0800 \U00010000 \U00040000 \U0010FFFF"),
            "\xFF ? ? ? ? ? ? ? ?");
  EXPECT_EQ(TextToAnsi("\xE2\x82 \xC1\x81 \xED\xA0\x80 \xED\xBF\xBF \xF4\x90\x80\x80 \xC3"),
            "?? ?? ??? ??? ???? ?");
}
