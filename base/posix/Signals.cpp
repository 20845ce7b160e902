// A handler records the signals, and they are raised again later: a signal mask would cover only
// one thread.
#include "base/Signals.h"

#include <csignal>
#include <cstddef>
#include <iterator>

namespace corvane {
namespace {

constexpr int EndSignals[] = {SIGTERM, SIGINT, SIGHUP, SIGQUIT};
constexpr std::size_t EndSignalCount = std::size(EndSignals);

volatile std::sig_atomic_t Arrived[EndSignalCount];
struct sigaction OldActions[EndSignalCount];
struct sigaction OldFileSizeAction;
int Guards = 0;

void Record(int signal) {
  for (std::size_t i = 0; i < EndSignalCount; ++i) {
    if (EndSignals[i] == signal) Arrived[i] = 1;
  }
}

void HoldBack(std::size_t i) {
  struct sigaction record {};
  record.sa_handler = Record;
  record.sa_flags = SA_RESTART;
  ::sigemptyset(&record.sa_mask);
  Arrived[i] = 0;
  ::sigaction(EndSignals[i], nullptr, &OldActions[i]);
  if (OldActions[i].sa_handler != SIG_IGN) ::sigaction(EndSignals[i], &record, nullptr);
}

void Release(std::size_t i) {
  ::sigaction(EndSignals[i], &OldActions[i], nullptr);
  if (Arrived[i] != 0) static_cast<void>(::raise(EndSignals[i]));  // fails only for a wrong number
}

void HoldBackFileSizeSignal() {
  struct sigaction ignore {};
  ignore.sa_handler = SIG_IGN;
  ::sigemptyset(&ignore.sa_mask);
  ::sigaction(SIGXFSZ, &ignore, &OldFileSizeAction);
}

}  // namespace

void IgnoreFileSizeSignal() { static_cast<void>(std::signal(SIGXFSZ, SIG_IGN)); }

EndSignalGuard::EndSignalGuard() {
  if (Guards++ > 0) return;
  HoldBackFileSizeSignal();
  for (std::size_t i = 0; i < EndSignalCount; ++i) HoldBack(i);
}

EndSignalGuard::~EndSignalGuard() {
  if (--Guards > 0) return;
  ::sigaction(SIGXFSZ, &OldFileSizeAction, nullptr);
  for (std::size_t i = 0; i < EndSignalCount; ++i) Release(i);
}

}  // namespace corvane
