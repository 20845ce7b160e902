// The cost of a separate process.
#pragma once

#include <string>
#include <vector>

#include "Rows.h"

namespace corvane {

enum class Cost {
  Millis,        // from start to exit
  PeakMiB,       // resident memory
  FirstPrinted,  // a number that the process prints
  SecondPrinted,
};

/// A job that runs the command and returns that cost. It exits if the command fails.
[[nodiscard]] Job ProcessJob(Cost cost, std::vector<std::string> command);

}  // namespace corvane
