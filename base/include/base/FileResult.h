// The outcome of a file operation, for whoever has to tell the user.
#pragma once

#include <string>

namespace corvane {

/// Done, or a sentence that names the file, what could not be done with it, and why.
struct [[nodiscard]] FileResult {
  std::string Failure;
  [[nodiscard]] bool Done() const { return Failure.empty(); }
};

}  // namespace corvane
