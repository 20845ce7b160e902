#include "tool/Console.h"

#include <string>

#include "tool/Printable.h"

namespace corvane {

void Report(const Console& console, std::string_view message) {
  console.PrintError("corvane-tool: " + Printable(message) + "\n");
}

int Fail(const Console& console, std::string_view message) {
  Report(console, message);
  return StatusFailed;
}

}  // namespace corvane
