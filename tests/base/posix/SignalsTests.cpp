// Signals that arrive in the middle of a save.
#include "base/Signals.h"

#include <csignal>

#include "TestFolder.h"

using namespace corvane;

namespace {

volatile std::sig_atomic_t Delivered = 0;
void Count(int) { Delivered = Delivered + 1; }

// Counts the signals that the program's own handler would receive.
struct Signals : testing::TestWithParam<int> {
  Signals() { Delivered = 0; }
  ~Signals() override { std::signal(GetParam(), Before); }
  void (*const Before)(int) = std::signal(GetParam(), Count);
};

}  // namespace

TEST_P(Signals, AreHeldUntilTheLastGuardIsDestroyed) {
  {
    const EndSignalGuard outer;
    {
      const EndSignalGuard inner;
      ::raise(GetParam());
    }
    EXPECT_EQ(Delivered, 0);
  }
  EXPECT_EQ(Delivered, 1);
  ::raise(GetParam());  // the old handler is back
  EXPECT_EQ(Delivered, 2);
}

TEST_P(Signals, ThatAreIgnoredStayIgnored) {
  ASSERT_EQ(std::signal(GetParam(), SIG_IGN), Count);
  {
    const EndSignalGuard guard;
    ::raise(GetParam());
  }
  EXPECT_EQ(std::signal(GetParam(), Count), SIG_IGN);
}

TEST_P(Signals, NeverInterruptASave) {
  const TestFolder folder;
  folder.Put("f", "old bytes");
  int raised = 0;
  InjectedFault = [&](FileStep, Moment, std::size_t&) {
    ++raised;
    ::raise(GetParam());
    EXPECT_EQ(Delivered, 0);
    return std::error_code();
  };
  EXPECT_EQ(MessageOf(SaveBytes(folder / "f", "new", IfMissing::Fail, 2)), "");
  EXPECT_GE(raised, 14);  // seven steps at both moments
  EXPECT_EQ(Delivered, 1);
  EXPECT_EQ(folder.Get("f"), "olnewytes");
}

INSTANTIATE_TEST_SUITE_P(Ends, Signals, testing::Values(SIGTERM, SIGINT, SIGHUP));
