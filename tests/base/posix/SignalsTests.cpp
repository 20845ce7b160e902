// Signals that arrive in the middle of a save.
#include "base/Signals.h"

#include <csignal>

#include "TestFolder.h"
#include "base/FileRanges.h"

using namespace corvane;

namespace {

constexpr int EndSignals[] = {SIGTERM, SIGINT, SIGHUP};

volatile std::sig_atomic_t Delivered = 0;
void Count(int) { Delivered = Delivered + 1; }

// The end signals are counted while a test runs, as the program's own handlers would see them.
struct Signals : testing::Test {
  Signals() {
    Delivered = 0;
    struct sigaction count {};
    count.sa_handler = Count;
    for (std::size_t i = 0; i < std::size(EndSignals); ++i)
      ::sigaction(EndSignals[i], &count, &Before[i]);
  }
  ~Signals() override {
    for (std::size_t i = 0; i < std::size(EndSignals); ++i)
      ::sigaction(EndSignals[i], &Before[i], nullptr);
  }
  struct sigaction Before[std::size(EndSignals)]{};
};

}  // namespace

TEST_F(Signals, WaitUntilTheLastGuardGoes) {
  for (const int signal : EndSignals) {
    SCOPED_TRACE(signal);
    Delivered = 0;
    {
      const EndSignalGuard outer;
      {
        const EndSignalGuard inner;
        ::raise(signal);
      }
      EXPECT_EQ(Delivered, 0);
    }
    EXPECT_EQ(Delivered, 1);
    ::raise(signal);  // the old handler is back
    EXPECT_EQ(Delivered, 2);
    { const EndSignalGuard another; }
    EXPECT_EQ(Delivered, 2) << "what was delivered is not delivered again";
  }
}

TEST_F(Signals, ThatAreIgnoredStayIgnored) {
  ASSERT_NE(std::signal(SIGHUP, SIG_IGN), SIG_ERR);
  {
    const EndSignalGuard guard;
    ::raise(SIGHUP);
  }
  EXPECT_EQ(Delivered, 0);
  EXPECT_EQ(std::signal(SIGHUP, Count), SIG_IGN);
}

TEST_F(Signals, NeverStrikeBetweenTheStepsOfASave) {
  const TestFolder folder;
  const WriteRange range{2, std::as_bytes(std::span("new", 3))};
  for (const int signal : EndSignals) {
    SCOPED_TRACE(signal);
    folder.Put("f", "old bytes");
    Delivered = 0;
    int raised = 0;
    int struck = 0;
    InjectedFault = [&](FileStep, Moment, std::size_t&) {
      ::raise(signal);
      ++raised;
      struck += Delivered;
      return std::error_code();
    };
    EXPECT_EQ(Told(SaveInPlace(folder / "f", {&range, 1}, IfMissing::Fail)), "");
    InjectedFault = nullptr;
    EXPECT_GE(raised, 14);  // seven steps at both moments
    EXPECT_EQ(struck, 0);
    EXPECT_EQ(Delivered, 1);
    EXPECT_EQ(folder.Get("f"), "olnewytes");
  }
}

TEST_F(Signals, OfAFullLimitMakeAWriteFailInsteadOfEndingTheProgram) {
  struct sigaction before {};
  ::sigaction(SIGXFSZ, nullptr, &before);
  IgnoreFileSizeSignal();
  ::raise(SIGXFSZ);  // would end the tests
  struct sigaction now {};
  ::sigaction(SIGXFSZ, &before, &now);
  EXPECT_EQ(now.sa_handler, SIG_IGN);
}
