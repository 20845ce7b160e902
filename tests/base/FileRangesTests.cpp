#include "TestFolder.h"
#include "base/FileRanges.h"

using namespace corvane;

namespace {

using enum FileStep;

struct FileRanges : testing::Test {
  const TestFolder Folder;
  const WriteRange Ranges[2] = {{1, std::as_bytes(std::span("bXYe", 4))},
                                {6, std::as_bytes(std::span("ZZZ", 3))}};
  [[nodiscard]] Result<> Save() const {
    return SaveInPlace(Folder / "f", Ranges, IfMissing::Create);
  }
};

}  // namespace

TEST_F(FileRanges, ASaveIsFlushedBetweenItsLastWriteAndTheClose) {
  for (const char* old : {"abcdefgh", ""}) {
    Folder.Put("f", old);
    std::vector<FileStep> steps;
    InjectedFault = [&](FileStep step, Moment moment, std::size_t&) {
      const bool counts = step == Write || step == Flush || step == Close;
      if (counts && moment == Moment::Before) steps.push_back(step);
      return std::error_code();
    };
    EXPECT_EQ(Told(Save()), "");
    InjectedFault = nullptr;
    EXPECT_EQ(steps, (std::vector{Write, Write, Flush, Close}));
  }
}

struct Taken : testing::Test {
  const TestFolder Folder;
  const std::string Path = Folder / "f";
  const WriteRange Range{0, std::as_bytes(std::span("new", 3))};
  [[nodiscard]] Result<> Save() const { return SaveInPlace(Path, {&Range, 1}, IfMissing::Create); }
  // Another program replaces the file during the save.
  void ReplaceAt(FileStep step) const {
    InjectedFault = [this, step](FileStep now, Moment moment, std::size_t&) {
      if (now != step || moment == Moment::Before) return std::error_code();
      InjectedFault = nullptr;
      std::filesystem::rename(Path, Folder / "moved");
      Folder.Put("f", "theirs");
      return std::error_code();
    };
  }
};

#ifndef _WIN32  // which keeps others from renaming a file that is open

TEST_F(Taken, AFileRenamedOverIsNotCalledSavedAndTheOldOneGetsItsBytesBack) {
  Folder.Put("f", "old bytes");
  ReplaceAt(FileStep::Write);
  const auto saved = Save();
  ASSERT_FALSE(saved.Done());
  EXPECT_EQ(saved.Error().Reason, FileError::Replaced);
  EXPECT_EQ(Folder.Get("f"), "theirs");
  EXPECT_EQ(Folder.Get("moved"), "old bytes");
}

TEST_F(Taken, ARemovedFileIsReportedAndItsOtherNameKeepsTheOldBytes) {
  Folder.Put("f", "old bytes");
  std::filesystem::create_hard_link(Path, Folder / "other");
  InjectedFault = [this](FileStep step, Moment moment, std::size_t&) {
    if (step == FileStep::Write && moment == Moment::After) std::filesystem::remove(Path);
    return std::error_code();
  };
  const std::string told = Told(Save());
  EXPECT_EQ(told, Path +
                      " could not be saved: another program has removed it. The file no longer "
                      "exists.");
  EXPECT_EQ(Folder.Get("other"), "old bytes");
}

TEST_F(Taken, ANewFileRenamedOverIsNotRemovedInItsPlace) {
  ReplaceAt(FileStep::Flush);
  const auto saved = Save();
  ASSERT_FALSE(saved.Done());
  EXPECT_EQ(saved.Error().State, FileState::Unchanged);
  EXPECT_EQ(Folder.Get("f"), "theirs");
}

#endif

struct KnownRow {
  const char* InFile;
  bool Asks;
};

TEST(KnownBytes, OnlyADifferenceBeforeTheEndOfTheFileStopsASave) {
  const TestFolder folder;
  const std::string known = "known bytes", fresh = "fresh bytes";
  const KnownRow rows[] = {
      {"known bytes", false}, {"known bytes and more", false}, {"known", false}, {"", false},
      {"Known bytes", true},  {"known byteS and more", true},  {"knowN", true}};
  for (const auto& [inFile, asks] : rows) {
    SCOPED_TRACE(inFile);
    folder.Put("f", inFile);
    const WriteRange range{0, std::as_bytes(std::span(fresh)), std::as_bytes(std::span(known))};
    const auto saved = SaveInPlace(folder / "f", {&range, 1}, IfMissing::Create);
    EXPECT_EQ(saved.Done(), !asks);
    EXPECT_EQ(folder.Get("f").starts_with(fresh), !asks);
    if (!asks) continue;
    EXPECT_EQ(saved.Error().Reason, FileError::ChangedByAnother);
    EXPECT_EQ(folder.Get("f"), inFile);
  }
}
