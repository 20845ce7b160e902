// Saves files of several lengths, with faults before and after every step, singly and in pairs, and
// compares the reported state with the file's actual contents.
#include <array>
#include <cstdlib>
#include <cstring>
#include <new>

#include "Session.h"
#include "base/FileRanges.h"

using namespace corvane;

// Counts allocations between the first changed byte and the end of the undo.
static bool MayNotAllocate = false;
static int Allocations = 0;

void* operator new(std::size_t size) {
  Allocations += static_cast<int>(MayNotAllocate);
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  std::abort();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

using Contents = std::optional<std::string>;  // nothing for no file

struct Fault {
  int Step = -1;  // counted from 0; -1 for none
  Moment When = Moment::Before;
};

// The faults of one save. Steps are counted when they begin.
struct Plan {
  std::array<Fault, 2> Faults;
  bool Permanent = false;  // every later step fails as well
  int Steps = 0;
  bool Changed = false;          // a write or a new length took effect
  bool Unflushed = false;        // and no flush came later
  int Allocated = 0;             // at the last call
  std::array<bool, 9> Failed{};  // by FileStep
  bool Blind = false;            // the last failed step would have read the file's state

  std::error_code operator()(FileStep step, Moment moment, std::size_t&) {
    if (moment == Moment::Before) ++Steps;
    if (step == FileStep::Write) MayNotAllocate = true;
    if (moment == Moment::After && (step == FileStep::Write || step == FileStep::SetLength))
      Changed = Unflushed = true;
    if (moment == Moment::After && step == FileStep::Flush) Unflushed = false;
    Allocated = Allocations;
    for (const Fault& fault : Faults) {
      const bool hit = fault.Step == Steps - 1 || (Permanent && fault.Step < Steps - 1);
      if (fault.Step < 0 || !hit || fault.When != moment) continue;
      Failed[std::size_t(step)] = true;
      // This includes an open: a file that cannot be opened cannot be read.
      if (step != FileStep::Close) Blind = std::strchr("OSPR", FileStepLetters[int(step)]);
      return {EIO, std::generic_category()};
    }
    return {};
  }
};

// True if the reported state of a file that held `old` matches its present content.
bool IsTrue(FileState state, const Contents& old, const Contents& now, const Plan& plan) {
  const bool flushed = !plan.Failed[std::size_t(FileStep::Flush)];
  switch (state) {
    case FileState::Unchanged:
      return old && now == old && flushed && !plan.Unflushed;
    case FileState::Unconfirmed:
      return old && now == old && plan.Changed &&
             (!flushed || plan.Failed[std::size_t(FileStep::Close)]);
    case FileState::NotCreated:
    case FileState::Removed:
    case FileState::Gone:
      return !old && !now;
    case FileState::Damaged:
      return old && now && now != old;
    case FileState::NotRemoved:
      return !old && now;
    case FileState::Unknown:
      return plan.Blind;
    case FileState::Untouched:
      return now == old;
  }
  return false;
}

struct SaveFaults : testing::Test {
  const TestFolder Folder;
  const std::string Path = Folder / "f";
  const std::string New = std::string(4000, 'n');
  const std::array<WriteRange, 3> Ranges{{{10, std::as_bytes(std::span(New).first(1000))},
                                          {1500, std::as_bytes(std::span(New).first(2000))},
                                          {3600, std::as_bytes(std::span(New).first(400))}}};
  Contents Old, Saved;

  [[nodiscard]] Contents Now() const {
    return std::filesystem::exists(Path) ? Contents(Folder.Get("f")) : std::nullopt;
  }

  void Place() const {
    std::filesystem::remove(Path);
    if (Old) Folder.Put("f", *Old);
  }

  // Returns the number of steps of the save.
  int Save(Plan plan) {
    SCOPED_TRACE(testing::PrintToString(std::pair(plan.Faults[0].Step, plan.Faults[1].Step)));
    Place();
    Allocations = 0;
    InjectedFault = std::ref(plan);
    const auto result = SaveInPlace(Path, Ranges, IfMissing::Create);
    MayNotAllocate = false;
    InjectedFault = nullptr;
    EXPECT_EQ(plan.Allocated, 0);
    if (result.Done()) {
      EXPECT_EQ(Now(), Saved);
    } else {
      EXPECT_TRUE(IsTrue(result.Error().State, Old, Now(), plan))
          << "reported " << static_cast<int>(result.Error().State);
    }
    return plan.Steps;
  }

  // Fails one step, permanently and in a pair with each later step. Returns the number of steps.
  int FailAt(const Fault& first) {
    Save({.Faults = {first}, .Permanent = true});
    const int taken = Save({.Faults = {first}});
    for (int second = first.Step + 1; second < taken; ++second)
      for (const Moment later : {Moment::Before, Moment::After})
        Save({.Faults = {first, Fault{second, later}}});
    return taken;
  }
};

}  // namespace

TEST_F(SaveFaults, AreReportedCorrectlyWithoutAllocation) {
  for (const int size : {-1, 0, 5, 3600, 4000, 5000}) {
    SCOPED_TRACE(size);
    Old = size < 0 ? std::nullopt : Contents(std::string(std::size_t(size), 'o'));
    Place();
    ASSERT_TRUE(SaveInPlace(Path, Ranges, IfMissing::Create).Done());
    Saved = Now();
    for (const Moment moment : {Moment::Before, Moment::After}) {
      int steps = 1;
      for (int step = 0; step < steps; ++step) steps = std::max(steps, FailAt({step, moment}));
      EXPECT_GT(steps, 7);
    }
  }
}

// How the windows handle a failed save.
TEST(FailedSave, OfTheTablesLeavesThemUnsaved) {
  Session session;
  for (MenuItem* command : {&session.Main.mnuFileSave, &session.Main.mnuFileSavePatch}) {
    session.Choice = session.File("p.crv");
    TablesDirty = true;
    FailFrom(3);
    session.Menu(*command);
    EXPECT_NE(session.Messages.back().find("could not be saved: "), std::string::npos);
    EXPECT_TRUE(TablesDirty);
    InjectedFault = nullptr;
    session.Menu(*command);
    EXPECT_FALSE(TablesDirty);
  }
}

TEST(FailedSave, OfABtdFileLeavesTheDialogOpenAndTheExitsUnchanged) {
  Session session;
  session.Within<dlgEditBTD>(session.Main.cmdEditBTD, [&](dlgEditBTD& dialog) {
    Session::Type(dialog.txtFileName, "new");
    VLDest(0, 0) = 77;
    FailFrom(3);
    Press(dialog.OKButton);
    EXPECT_NE(session.Messages.back().find("new.btd could not be saved: "), std::string::npos);
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_EQ(VLDest(0, 0), 77);
    InjectedFault = nullptr;
    Press(dialog.OKButton);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_NE(VLDest(0, 0), 77);
  });
}
