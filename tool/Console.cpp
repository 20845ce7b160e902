#include "tool/Console.h"

#include <algorithm>
#include <string>

#include "tool/Printable.h"

namespace corvane {

void ComplainOf(const Console& console, std::string_view reason) {
  while (!reason.empty()) {
    const std::string_view line = reason.substr(0, reason.find('\n'));
    const bool crlf = line.ends_with('\r');
    const std::string text = Printable(line.substr(0, line.size() - (crlf ? 1 : 0)));
    if (!text.empty()) console.Complain("corvane-tool: " + text + "\n");
    reason.remove_prefix(std::min(line.size() + 1, reason.size()));
  }
}

int Fail(const Console& console, std::string_view reason) {
  ComplainOf(console, reason);
  return StatusFailed;
}

}  // namespace corvane
