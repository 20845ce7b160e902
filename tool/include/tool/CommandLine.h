// The command line: what the arguments ask for, and every text about how to use the program.
#pragma once

#include <string>
#include <vector>

#include "tool/Console.h"

namespace corvane {

/// Does what the arguments (without the program's name, in UTF-8) ask for and gives back the exit
/// status of the program.
[[nodiscard]] int RunTool(const std::vector<std::string>& arguments, const Console& console);

}  // namespace corvane
