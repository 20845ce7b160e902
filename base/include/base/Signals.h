// The signals that would end the program in the middle of a save.
#pragma once

namespace corvane {

/// A write above the limit on the size of files then fails, where the system would otherwise end
/// the program. A save sees to that by itself.
void IgnoreFileSizeSignal();

/// While one exists, what asks the program to end (SIGTERM, SIGINT, SIGHUP, SIGQUIT; Ctrl+C on
/// Windows) is held back, in every thread. It takes effect when the last one goes. A write above
/// the limit on the size of files fails meanwhile, where the system would otherwise end the
/// program.
class EndSignalGuard {
 public:
  EndSignalGuard();
  EndSignalGuard(const EndSignalGuard&) = delete;
  EndSignalGuard& operator=(const EndSignalGuard&) = delete;
  ~EndSignalGuard();
};

}  // namespace corvane
