// Saves every kind of file at every length, with faults before and after every step, singly and in
// pairs, and compares the message for the user with the file's actual content.
#include <array>
#include <cstdio>
#include <cstdlib>
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

struct Strike {
  int Step = -1;  // counted from 0; -1 for none
  Moment When = Moment::Before;
};

// Includes Open: a file that cannot be opened cannot be read.
constexpr bool TellsOfTheFile(FileStep step) {
  return step == FileStep::Open || step == FileStep::Status || step == FileStep::PathStatus ||
         step == FileStep::Read;
}

// The faults of one save. Steps are counted when they begin.
struct Plan {
  std::array<Strike, 2> Strikes;
  bool ForGood = false;  // every later step fails, too
  int Steps = 0;
  int Allocated = 0;   // at the last call
  bool Blind = false;  // the last failed step would have read the file's state

  std::error_code operator()(FileStep step, Moment moment, std::size_t&) {
    if (moment == Moment::Before) ++Steps;
    if (step == FileStep::Write) MayNotAllocate = true;
    Allocated = Allocations;
    for (const Strike& strike : Strikes) {
      const bool hit = strike.Step == Steps - 1 || (ForGood && strike.Step < Steps - 1);
      if (strike.Step < 0 || !hit || strike.When != moment) continue;
      if (step != FileStep::Close) Blind = TellsOfTheFile(step);
      return {EIO, std::generic_category()};
    }
    return {};
  }
};

struct Counts {
  int Saves = 0, Failed = 0, Whole = 0, Unconfirmed = 0, Torn = 0, Unknown = 0, Allocations = 0;
};

// True if the reported state of a file that held `old` matches its present content.
bool IsTrue(FileState state, const std::optional<std::string>& old,
            const std::optional<std::string>& now, const Plan& plan) {
  switch (state) {
    case FileState::Unchanged:
    case FileState::Unconfirmed:
      return old && now == old;
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

using Contents = std::optional<std::string>;  // empty if there is no file

struct SaveFaults : testing::Test {
  const TestFolder Folder;
  const std::string Path = Folder / "f";
  std::string New = std::string(4000, 'n');
  std::array<WriteRange, 3> Ranges{{{10, std::as_bytes(std::span(New).first(1000))},
                                    {1500, std::as_bytes(std::span(New).first(2000))},
                                    {3600, std::as_bytes(std::span(New).first(400))}}};
  Counts Sum;

  [[nodiscard]] std::optional<std::string> Now() const {
    if (!std::filesystem::exists(Path)) return {};
    return Folder.Get("f");
  }
  void Place(const std::optional<std::string>& old) const {
    std::filesystem::remove(Path);
    if (old) Folder.Put("f", *old);
  }

  // Returns the number of steps that the save took.
  int Save(const std::optional<std::string>& old, const std::optional<std::string>& saved,
           Plan plan) {
    Place(old);
    Allocations = 0;
    InjectedFault = std::ref(plan);
    const auto result = SaveInPlace(Path, Ranges, IfMissing::Create);
    MayNotAllocate = false;
    InjectedFault = nullptr;
    Sum.Allocations += plan.Allocated;
    ++Sum.Saves;
    if (result.Done()) {
      EXPECT_EQ(Now(), saved);
    } else {
      Judge(result.Error().State, old, plan);
    }
    return plan.Steps;
  }

  int StrikeAt(int step, Moment moment, const Contents& old, const Contents& saved);

  void Judge(FileState state, const std::optional<std::string>& old, const Plan& plan) {
    const auto now = Now();
    EXPECT_TRUE(IsTrue(state, old, now, plan)) << "told " << static_cast<int>(state);
    ++Sum.Failed;
    Sum.Whole += static_cast<int>(now == old);
    Sum.Unconfirmed += static_cast<int>(state == FileState::Unconfirmed);
    Sum.Torn += static_cast<int>(now != old && state != FileState::Unknown);
    Sum.Unknown += static_cast<int>(state == FileState::Unknown);
  }
};

std::string Name(const Plan& plan) {
  std::string name = plan.ForGood ? "for good" : "";
  for (const Strike& strike : plan.Strikes) {
    name += " " + std::to_string(strike.Step);
    name += strike.When == Moment::Before ? "before" : "after";
  }
  return name;
}

// Strikes at one step: once, for good, and paired with each later step. Returns the steps taken.
int SaveFaults::StrikeAt(int step, Moment moment, const Contents& old, const Contents& saved) {
  Plan plan{{{{step, moment}, {}}}};
  SCOPED_TRACE(Name(plan));
  const int taken = Save(old, saved, plan);
  plan.ForGood = true;
  Save(old, saved, plan);
  plan.ForGood = false;
  for (int second = step + 1; second < taken; ++second) {
    for (const Moment later : {Moment::Before, Moment::After}) {
      plan.Strikes[1] = {second, later};
      SCOPED_TRACE(Name(plan));
      Save(old, saved, plan);
    }
  }
  return taken;
}

}  // namespace

TEST_F(SaveFaults, AreToldAsTheyAreAndNeverAllocate) {
  const Contents files[] = {std::nullopt,           "",
                            std::string(5, 'o'),    std::string(3600, 'o'),
                            std::string(4000, 'o'), std::string(5000, 'o')};
  for (const Contents& old : files) {
    SCOPED_TRACE(old ? std::to_string(old->size()) + " bytes" : "no file");
    Save(old, old, {{{{0}, {1}}}, true});
    Place(old);
    ASSERT_TRUE(SaveInPlace(Path, Ranges, IfMissing::Create).Done());
    const Contents saved = Now();
    for (const Moment moment : {Moment::Before, Moment::After}) {
      int steps = 1;
      for (int step = 0; step < steps; ++step)
        steps = std::max(steps, StrikeAt(step, moment, old, saved));
    }
  }
  EXPECT_EQ(Sum.Allocations, 0);
  std::printf(
      "%d saves, %d failed: %d left the file whole, %d of these unconfirmed by the disk; "
      "%d torn and told so; of %d the state was told to be unknown.\n",
      Sum.Saves, Sum.Failed, Sum.Whole, Sum.Unconfirmed, Sum.Torn, Sum.Unknown);
}

// How the windows handle a failed save.
struct FailedSave : testing::Test {
  Session session;
  void Refuse() const {
    InjectedFault = [](FileStep step, Moment, std::size_t&) {
      return step == FileStep::Write ? std::make_error_code(std::errc::no_space_on_device)
                                     : std::error_code();
    };
  }
  [[nodiscard]] bool Says(const std::string& words) const {
    return session.Messages.back().find(words) != std::string::npos;
  }
};

TEST_F(FailedSave, OfTheTablesLeavesThemUnsaved) {
  for (MenuItem* command : {&session.Main.mnuFileSave, &session.Main.mnuFileSavePatch}) {
    session.Choice = session.File("p.crv");
    TablesDirty = true;
    Refuse();
    session.Menu(*command);
    EXPECT_TRUE(Says("could not be saved: "));
    EXPECT_TRUE(TablesDirty);
    InjectedFault = nullptr;
    session.Menu(*command);
    EXPECT_FALSE(TablesDirty);
  }
}

TEST_F(FailedSave, OfABtdFileLeavesTheDialogOpenAndTheExitsAsTheyWere) {
  session.Within<dlgEditBTD>(session.Main.cmdEditBTD, [&](dlgEditBTD& dialog) {
    Session::Type(dialog.txtFileName, "new");
    VLDest(0, 0) = 77;
    Refuse();
    Press(dialog.OKButton);
    EXPECT_TRUE(Says("new.btd could not be saved: "));
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_EQ(VLDest(0, 0), 77);
    EXPECT_FALSE(std::filesystem::exists(session.File("Maps/new.btd")));
    InjectedFault = nullptr;
    Press(dialog.OKButton);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_NE(VLDest(0, 0), 77);
    EXPECT_TRUE(std::filesystem::exists(session.File("Maps/new.btd")));
  });
}
