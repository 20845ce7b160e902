// A console handler records Ctrl+C and Ctrl+Break; the last guard raises Ctrl+C again for either.
#include "base/Signals.h"

#include <windows.h>

#include <atomic>

namespace corvane {
namespace {

int Guards = 0;
std::atomic<bool> Arrived = false;  // the system runs the handler on a thread of its own

BOOL WINAPI Record(DWORD event) {
  if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT) return FALSE;
  Arrived = true;
  return TRUE;
}

}  // namespace

void IgnoreFileSizeSignal() {}  // no such signal here

EndSignalGuard::EndSignalGuard() {
  if (Guards++ == 0) ::SetConsoleCtrlHandler(Record, TRUE);
}

EndSignalGuard::~EndSignalGuard() {
  if (--Guards > 0) return;
  ::SetConsoleCtrlHandler(Record, FALSE);
  if (Arrived.exchange(false)) ::GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0);
}

}  // namespace corvane
