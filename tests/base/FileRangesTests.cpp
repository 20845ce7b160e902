#include "TestFolder.h"

using namespace corvane;

struct FileRanges : testing::Test {
  // Another program replaces the file after a step of the save.
  void ReplaceAfter(FileStep step) const {
    InjectedFault = [this, step](FileStep now, Moment moment, std::size_t&) {
      if (now != step || moment == Moment::Before) return std::error_code();
      InjectedFault = nullptr;
      std::filesystem::rename(Path, Folder / "moved");
      Folder.Put("f", "theirs");
      return std::error_code();
    };
  }
  const TestFolder Folder;
  const std::string Path = Folder / "f";
};

TEST_F(FileRanges, AreFlushedBetweenTheLastWriteAndTheClose) {
  using enum FileStep;
  const WriteRange ranges[] = {{1, std::as_bytes(std::span("bXYe", 4))},
                               {6, std::as_bytes(std::span("ZZZ", 3))}};
  for (const char* old : {"abcdefgh", ""}) {
    Folder.Put("f", old);
    std::vector<FileStep> steps;
    InjectedFault = [&](FileStep step, Moment moment, std::size_t&) {
      const bool counts = step == Write || step == Flush || step == Close;
      if (counts && moment == Moment::Before) steps.push_back(step);
      return std::error_code();
    };
    EXPECT_EQ(MessageOf(SaveInPlace(Path, ranges, IfMissing::Create)), "");
    EXPECT_EQ(steps, (std::vector{Write, Write, Flush, Close}));
  }
}

#ifndef _WIN32  // which keeps others from renaming a file that is open

TEST_F(FileRanges, AFileReplacedDuringASaveIsReportedAndGetsItsOldBytesBack) {
  Folder.Put("f", "old bytes");
  ReplaceAfter(FileStep::Write);
  const auto saved = SaveBytes(Path, "new");
  ASSERT_FALSE(saved.Done());
  EXPECT_EQ(saved.Error().Reason, FileError::Replaced);
  EXPECT_EQ(Folder.Get("f"), "theirs");
  EXPECT_EQ(Folder.Get("moved"), "old bytes");
}

TEST_F(FileRanges, AFileRemovedDuringASaveKeepsItsOldBytesUnderAnotherName) {
  Folder.Put("f", "old bytes");
  std::filesystem::create_hard_link(Path, Folder / "other");
  InjectedFault = [this](FileStep step, Moment moment, std::size_t&) {
    if (step == FileStep::Write && moment == Moment::After) std::filesystem::remove(Path);
    return std::error_code();
  };
  EXPECT_EQ(
      MessageOf(SaveBytes(Path, "new")),
      Path + " could not be saved: another program has removed it. The file no longer exists.");
  EXPECT_EQ(Folder.Get("other"), "old bytes");
}

TEST_F(FileRanges, ANewFileReplacedDuringASaveIsNotRemoved) {
  ReplaceAfter(FileStep::Flush);
  const auto saved = SaveBytes(Path, "new", IfMissing::Create);
  ASSERT_FALSE(saved.Done());
  EXPECT_EQ(saved.Error().State, FileState::Unchanged);
  EXPECT_EQ(Folder.Get("f"), "theirs");
}

#endif

TEST_F(FileRanges, OnlyADifferenceBeforeTheEndOfTheFileStopsASave) {
  const std::string known = "known bytes", fresh = "fresh bytes";
  const std::pair<const char*, bool> rows[] = {
      {"known bytes", true},  {"known bytes and more", true},  {"known", true}, {"", true},
      {"Known bytes", false}, {"known byteS and more", false}, {"knowN", false}};
  for (const auto& [inFile, saves] : rows) {
    SCOPED_TRACE(inFile);
    Folder.Put("f", inFile);
    const WriteRange range{0, std::as_bytes(std::span(fresh)), std::as_bytes(std::span(known))};
    const auto saved = SaveInPlace(Path, {&range, 1}, IfMissing::Create);
    EXPECT_EQ(saved.Done(), saves);
    EXPECT_EQ(Folder.Get("f").starts_with(fresh), saves);
    if (saves) continue;
    EXPECT_EQ(saved.Error().Reason, FileError::ChangedByAnother);
    EXPECT_EQ(Folder.Get("f"), inFile);
  }
}
