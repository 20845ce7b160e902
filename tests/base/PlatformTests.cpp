// Files, folders and texts, which must behave alike on every system.
#include <algorithm>

#include "TestFolder.h"
#include "base/AnsiText.h"
#include "base/FolderScan.h"
#include "base/LetterCase.h"
#include "base/RawFile.h"

using namespace corvane;

struct RawFiles : testing::Test {
  RawFiles() { Folder.Put("f", "abcdefghij"); }
  const TestFolder Folder;
  RawFile File;
  std::string Text = std::string(12, '.');
  const std::span<std::byte> Buffer = std::as_writable_bytes(std::span(Text));
  std::size_t Read = 99;
};

TEST_F(RawFiles, RejectInvalidOpens) {
  EXPECT_TRUE(File.Open(Folder / "f", OpenMode::Create));
  EXPECT_TRUE(File.Open(Folder / "", OpenMode::Change));
  ASSERT_FALSE(File.Open(Folder / "f", OpenMode::Change));
  EXPECT_EQ(File.Open(Folder / "f", OpenMode::Read), std::errc::device_or_resource_busy);
  RawFile reader;
  ASSERT_FALSE(reader.Open(Folder / "f", OpenMode::Read));
  EXPECT_TRUE(reader.WriteAt(0, Buffer));
}

TEST_F(RawFiles, CompleteShortTransfers) {
  ASSERT_FALSE(File.Open(Folder / "f", OpenMode::Change));
  std::string asked;
  InjectedFault = [&](FileStep step, Moment moment, std::size_t& bytes) {
    if (moment == Moment::Before) asked += FileStepLetters[static_cast<int>(step)];
    bytes = 3;  // too much for the last part of each transfer
    return std::error_code();
  };
  EXPECT_FALSE(File.WriteAt(1, std::as_bytes(std::span("123456"))));
  EXPECT_FALSE(File.ReadAt(0, Buffer, Read));
  InjectedFault = [](FileStep, Moment, std::size_t& bytes) {
    bytes = 0;
    return std::error_code();
  };
  EXPECT_EQ(File.WriteAt(0, Buffer), std::errc::io_error);
  InjectedFault = nullptr;
  EXPECT_EQ(Text.substr(0, Read), std::string("a123456\0ij", 10));
  EXPECT_EQ(asked, "WWWRRRRR");
}

TEST_F(RawFiles, RejectOffsetsBeyondAnyFile) {
  ASSERT_FALSE(File.Open(Folder / "f", OpenMode::Change));
  for (const std::uint64_t offset : {~0ULL, ~0ULL - 11, ~0ULL / 2 - 11}) {
    EXPECT_EQ(File.WriteAt(offset, Buffer), std::errc::value_too_large);
    EXPECT_EQ(File.ReadAt(offset, Buffer, Read = 99), std::errc::value_too_large);
    EXPECT_EQ(Read, 0U);
  }
  EXPECT_EQ(File.SetLength(~0ULL / 2 + 1), std::errc::value_too_large);
  EXPECT_NE(File.SetLength(~0ULL / 2), std::errc::value_too_large);
}

TEST_F(RawFiles, AreTheSameUnderAnyNameUnlessMissing) {
  Folder.Put("g", "abcdefghij");
  std::filesystem::create_hard_link(Folder.Path / "f", Folder.Path / "h");
  EXPECT_TRUE(IsSameFile(Folder / "f", Folder / "./f"));
  EXPECT_TRUE(IsSameFile(Folder / "f", Folder / "h"));
  EXPECT_FALSE(IsSameFile(Folder / "f", Folder / "g"));
  EXPECT_FALSE(IsSameFile(Folder / "none", Folder / "none"));
}

TEST(FolderScan, FindsOrdinaryFilesByExtensionUpToTheLimit) {
  const TestFolder folder;
  for (const char* name : {"a.btd", "B.BTD", "c.btd~", "d.btdx", "btd", "e.btd/x"})
    folder.Put(name);
  std::vector<std::string> names, one;
  EXPECT_FALSE(ScanFolder(folder.Path.string(), ".Btd", 9, names));
  EXPECT_FALSE(ScanFolder(folder.Path.string(), ".Btd", 1, one));
  EXPECT_FALSE(OrdinaryFileExists(folder / "e.btd"));
  std::ranges::sort(names, LessIgnoringCase);
  EXPECT_EQ(names, (std::vector<std::string>{"a.btd", "B.BTD"}));
  EXPECT_EQ(one.size(), 1U);
  EXPECT_TRUE(ScanFolder(folder / "none", ".btd", 9, one));
  for (int i = 0; i < 200; ++i) folder.Put(std::to_string(i) + ".many");
  names.clear();
  EXPECT_FALSE(ScanFolder(folder.Path.string(), ".many", 999, names));
  EXPECT_EQ(names.size(), 200U);
}

TEST(FileNames, StayInTheirFolder) {
  for (const char* name : {"", ".", "..", "a/b", "../x", "/"})
    EXPECT_FALSE(IsFileName(name)) << name;
  EXPECT_FALSE(IsFileName({"a\0b", 3}));
  for (const char* name : {"a", ".btd", "a b.btd"}) EXPECT_TRUE(IsFileName(name)) << name;
}

TEST(AnsiText, PreservesAllBytesAndReplacesForeignCharactersAndInvalidUtf8) {
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
