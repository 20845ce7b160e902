// The signals that would end the program in the middle of a save.
#pragma once

namespace corvane {

/// Makes a write above the file size limit fail. By default the system ends the program. Saves need
/// no such call.
void IgnoreFileSizeSignal();

/// While a guard exists, requests to end the program (SIGTERM, SIGINT, SIGHUP, SIGQUIT; on
/// Windows Ctrl+C and Ctrl+Break) are held back in every thread, and a write above the file size
/// limit fails instead of ending the program. Held requests take effect when the last guard is
/// destroyed.
class EndSignalGuard {
 public:
  EndSignalGuard();
  EndSignalGuard(const EndSignalGuard&) = delete;
  EndSignalGuard& operator=(const EndSignalGuard&) = delete;
  ~EndSignalGuard();
};

}  // namespace corvane
