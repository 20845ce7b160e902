// The output of a command, which tests replace to run one without a process.
#pragma once

#include <functional>
#include <string_view>

namespace corvane {

struct Console {
  std::function<void(std::string_view)> Print;       // results, on standard output
  std::function<void(std::string_view)> PrintError;  // everything else, on standard error
  bool Colour = false;                               // colour the results
};

// The exit statuses of all commands.
constexpr int StatusDone = 0;
constexpr int StatusNegative = 1;  // findings, differences, a copy that was refused
constexpr int StatusFailed = 2;    // wrong usage, or a failed operation

/// Prints one line, which begins with the program's name, on standard error. Escapes line ends and
/// other control characters, so that a file name cannot pass for a message.
void Report(const Console& console, std::string_view message);

/// Reports a failure and returns StatusFailed.
[[nodiscard]] int Fail(const Console& console, std::string_view message);

}  // namespace corvane
