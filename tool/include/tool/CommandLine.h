// The command line: parses the arguments and prints the help texts.
#pragma once

#include <string>
#include <vector>

#include "tool/Console.h"

namespace corvane {

/// Runs the command in the arguments, which are UTF-8 without the program's name. Returns the exit
/// status of the program.
[[nodiscard]] int RunTool(const std::vector<std::string>& arguments, const Console& console);

}  // namespace corvane
