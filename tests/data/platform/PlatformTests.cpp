// Files, folders and texts as every system has to give them.
#include <gtest/gtest.h>

#include <algorithm>

#include "TemporaryFolder.h"
#include "platform/AnsiText.h"
#include "platform/FolderScan.h"

using namespace corvane;

TEST(RawFile, FinishesShortTransfersAndAsksForFaultsAtEveryStep) {
  const TemporaryFolder folder;
  folder.Put("f", "abcdefghij");
  RawFile file;
  for (const auto& [name, mode] : {std::pair("f", OpenMode::Create), {"", OpenMode::Read}})
    EXPECT_TRUE(file.Open(folder / name, mode));
  ASSERT_FALSE(file.Open(folder / "f", OpenMode::Change));
  std::error_code fault;
  std::size_t most = 3, read = 0;  // 3 is too much for the last step of each transfer
  std::string asked, text(12, '.');
  InjectedFault = [&](FileStep step, std::size_t& bytes) {
    return asked += "OLRWSFCX"[static_cast<int>(step)], bytes = most, fault;
  };
  const auto buffer = std::as_writable_bytes(std::span(text));
  EXPECT_FALSE(file.WriteAt(1, std::as_bytes(std::span("123456"))));
  EXPECT_FALSE(file.ReadAt(0, buffer, read));
  EXPECT_EQ(text.substr(0, read), std::string("a123456\0ij", 10));
  for (const std::uint64_t offset : {~0ULL, ~0ULL - 11, ~0ULL / 2 - 11})
    EXPECT_TRUE(file.WriteAt(offset, buffer) && file.ReadAt(offset, buffer, read)) << offset;
  most = 0;
  EXPECT_TRUE(file.WriteAt(0, buffer)) << "or it would never end";
  fault = std::make_error_code(std::errc::no_space_on_device);
  std::uint64_t n = 0;
  for (const auto& result :
       {file.Length(n), file.ReadAt(0, buffer, read), file.WriteAt(0, buffer), file.SetLength(0),
        file.Flush(), file.Close(), RemoveFile(folder / "f"), file.Open("f", OpenMode::Read)})
    EXPECT_EQ(result, fault);
  EXPECT_EQ(asked, "WWWRRRRRWLRWSFCXO");
  EXPECT_EQ(std::filesystem::file_size(folder / "f"), 10U);
}

TEST(FolderScan, TakesOrdinaryFilesByExtensionUpToTheLimit) {
  const TemporaryFolder folder;
  for (const char* name : {"a.btd", "B.BTD", "c.btd~", "d.btdx", "btd", "e.btd/x"})
    folder.Put(name);
  std::vector<std::string> names, two;
  EXPECT_FALSE(ScanFolder(folder.Path.string(), ".Btd", 2, two));
  EXPECT_FALSE(ScanFolder(folder.Path.string(), ".Btd", 9, names));
  EXPECT_TRUE(two.size() == 2 && ScanFolder(folder / "none", ".btd", 9, two));
  std::ranges::sort(names, OrderedBefore);
  EXPECT_EQ(names, (std::vector<std::string>{"a.btd", "B.BTD"}));
  EXPECT_TRUE(OrdinaryFileExists(folder / "a.btd") && !OrdinaryFileExists(folder / "e.btd"));
}

TEST(AnsiText, KeepsAllBytesAndMarksWhatItLacksAndWhatIsNoUtf8) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  EXPECT_EQ(TextToAnsi(AnsiToText(bytes)), bytes);
  EXPECT_EQ(TextToAnsi("€Ÿÿ Ā \u0080 😀"), "\x80\x9F\xFF ? ? ?");
  EXPECT_EQ(TextToAnsi("\xE2\x82 \xC1\x81 \xED\xA0\x80 \xF4\x90\x80\x80 \xC3"), "?? ?? ??? ???? ?");
}
