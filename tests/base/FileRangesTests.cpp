#include <algorithm>

#include "TestFolder.h"
#include "base/FileRanges.h"

using namespace corvane;

namespace {

constexpr char Old[] = "abcdefgh";

struct SaveSteps {
  const char* Name;
  const char* Before;  // the file's contents; null for no file
  const char* Steps;   // a letter each, a small one if the step fails
  FileState State;
  const char* After;
};

// What a save of "bXYe" at 1 and "ZZZ" at 6 asks of the system.
constexpr SaveSteps Rows[] = {
    {"Saved", Old, "OSRRRWWFPC", FileState::Unchanged, "abXYefZZZ"},
    {"NotOpened", Old, "oP", FileState::Unchanged, Old},
    {"NoStatus", Old, "OsC", FileState::Unchanged, Old},
    {"NotRead", Old, "OSrC", FileState::Unchanged, Old},
    {"NothingWritten", Old, "OSRRRwSRRC", FileState::Unchanged, Old},
    {"SecondWrite", Old, "OSRRRWwSRWRFC", FileState::Unchanged, Old},
    {"Flush", Old, "OSRRRWWfSLRWRWC", FileState::Unconfirmed, Old},
    {"Place", Old, "OSRRRWWFpSLRWRWFC", FileState::Unchanged, Old},
    {"Close", Old, "OSRRRWWFPcOSSLRWRWFC", FileState::Unchanged, Old},
    {"UndoFlush", Old, "OSRRRWwSRWRfC", FileState::Unconfirmed, Old},
    {"UndoClose", Old, "OSRRRWwSRWRFc", FileState::Unconfirmed, Old},
    {"Reopen", Old, "OSRRRWWFPco", FileState::Unknown, "abXYefZZZ"},
    {"UndoWrite", Old, "OSRRRWwSRwRSRC", FileState::Damaged, "abXYefgh"},
    {"UndoLength", Old, "OSRRRWWfSlRWRWSC", FileState::Damaged, "abcdefghZ"},
    {"Created", nullptr, "OPOSWWFPC", FileState::Unchanged, "\0bXYe\0ZZZ"},
    {"NotCreated", nullptr, "OPoP", FileState::NotCreated, nullptr},
    {"NoStatusOfNew", nullptr, "OPOsCX", FileState::Removed, nullptr},
    {"NewWrite", nullptr, "OPOSWwCPX", FileState::Removed, nullptr},
    {"NewClose", nullptr, "OPOSWWFPcPX", FileState::Removed, nullptr},
    {"NewNotRemoved", nullptr, "OPOSWwCPxP", FileState::NotRemoved, "\0bXYe"},
};

std::string ContentOf(const SaveSteps& row) {
  const std::string made("\0bXYe\0ZZZ", 9);
  if (row.After == nullptr) return {};
  return row.After[0] == '\0' ? made.substr(0, row.State == FileState::NotRemoved ? 5 : 9)
                              : row.After;
}

// Fails the steps that `wanted` has as small letters, and notes what was asked.
void Script(std::string_view wanted, std::string& asked) {
  InjectedFault = [wanted, &asked](FileStep step, Moment moment, std::size_t&) {
    if (moment == Moment::After) return std::error_code();
    const char letter = FileStepLetters[static_cast<int>(step)];
    const auto small = static_cast<char>(letter + ('a' - 'A'));
    const bool fails = asked.size() < wanted.size() && wanted[asked.size()] == small;
    asked += fails ? small : letter;
    return fails ? std::make_error_code(std::errc::io_error) : std::error_code();
  };
}

struct FileRanges : testing::TestWithParam<SaveSteps> {
  const TestFolder Folder;
  const WriteRange Ranges[2] = {{1, std::as_bytes(std::span("bXYe", 4))},
                                {6, std::as_bytes(std::span("ZZZ", 3))}};
  [[nodiscard]] Result<> Save() const {
    return SaveInPlace(Folder / "f", Ranges, IfMissing::Create);
  }
};

}  // namespace

TEST_P(FileRanges, ASaveTakesTheseStepsAndTellsTheStateOfTheFile) {
  const SaveSteps& row = GetParam();
  if (row.Before != nullptr) Folder.Put("f", row.Before);
  std::string asked;
  Script(row.Steps, asked);
  const auto saved = Save();
  EXPECT_EQ(asked, row.Steps);
  EXPECT_EQ(saved.Done(), std::ranges::none_of(asked, islower));
  if (!saved.Done()) {
    EXPECT_EQ(saved.Error().State, row.State);
  }
  EXPECT_EQ(Folder.Get("f"), ContentOf(row));
  EXPECT_EQ(std::filesystem::exists(Folder / "f"), row.After != nullptr);
}

INSTANTIATE_TEST_SUITE_P(Steps, FileRanges, testing::ValuesIn(Rows),
                         [](const auto& row) { return row.param.Name; });

struct Taken : testing::Test {
  const TestFolder Folder;
  const std::string Path = Folder / "f";
  const WriteRange Range{0, std::as_bytes(std::span("new", 3))};
  [[nodiscard]] Result<> Save() const { return SaveInPlace(Path, {&Range, 1}, IfMissing::Create); }
  // Another program puts its own file in the place of this one while it is being saved.
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

TEST(KnownBytes, OnlyADifferenceAsFarAsTheFileReachesStopsASave) {
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
