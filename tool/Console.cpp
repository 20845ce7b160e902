#include "tool/Console.h"

#include <string>

#include "tool/Printable.h"

namespace corvane {

void ComplainOf(const Console& console, std::string_view reason) {
  console.Complain("corvane-tool: " + Printable(reason) + "\n");
}

int Fail(const Console& console, std::string_view reason) {
  ComplainOf(console, reason);
  return StatusFailed;
}

}  // namespace corvane
