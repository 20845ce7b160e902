// The output of a verb, which tests replace to run one without a process.
#pragma once

#include <functional>
#include <string_view>

namespace corvane {

struct Console {
  std::function<void(std::string_view)> Print;     // results, on standard output
  std::function<void(std::string_view)> Complain;  // everything else, on standard error
  bool Colour = false;                             // colour the results
};

// The exit statuses of all verbs.
constexpr int StatusDone = 0;
constexpr int StatusNegative = 1;  // findings, differences, a copy that was refused
constexpr int StatusFailed = 2;    // wrong usage, or a failed operation

/// Complains in one line that begins with the program's name, made fit for a terminal. A line end
/// in the reason is spelled out, so that the name of a file cannot pass for a message.
void ComplainOf(const Console& console, std::string_view reason);

/// Complains and returns StatusFailed.
[[nodiscard]] int Fail(const Console& console, std::string_view reason);

}  // namespace corvane
