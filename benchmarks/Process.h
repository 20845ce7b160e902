// What a process of its own costs.
#pragma once

#include <string>
#include <vector>

#include "Rows.h"

namespace corvane {

enum class Cost {
  Millis,        // from its start to its end
  PeakMiB,       // its resident memory
  FirstPrinted,  // the numbers that it prints itself
  SecondPrinted,
};

/// A job that runs the command and gives back that cost. It ends the run if the command fails.
[[nodiscard]] Job ProcessJob(Cost cost, std::vector<std::string> command);

}  // namespace corvane
