// The costs that a measured window prints about its own process.
#pragma once

#include <windows.h>

#include <psapi.h>

#include <cstdio>

/// Prints the milliseconds since the start of the process and its peak memory in MiB, and exits.
inline void PrintOwnCosts() {
  FILETIME start{}, now{}, unused{};
  PROCESS_MEMORY_COUNTERS memory{};
  GetProcessTimes(GetCurrentProcess(), &start, &unused, &unused, &unused);
  GetSystemTimeAsFileTime(&now);
  GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
  const auto ticks = [](const FILETIME& time) {  // in units of 100 nanoseconds
    return static_cast<double>((ULONGLONG{time.dwHighDateTime} << 32) + time.dwLowDateTime);
  };
  std::printf("%f %f\n", (ticks(now) - ticks(start)) / 1e4,
              static_cast<double>(memory.PeakWorkingSetSize) / (1024 * 1024));
  std::fflush(stdout);
  TerminateProcess(GetCurrentProcess(), 0);
}
