// The command line: parses the arguments and prints the help texts.
#pragma once

#include <string>
#include <vector>

#include "tool/Console.h"

namespace corvane {

/// Runs the command that the arguments name. They are UTF-8, without the program's name. Returns
/// the program's exit status.
[[nodiscard]] int RunTool(const std::vector<std::string>& arguments, const Console& console);

}  // namespace corvane
