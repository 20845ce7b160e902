// Judges the tables before they are written: the exits of the BTD files against the connections,
// and coordinates and sizes against their ranges.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace corvane {

/// One finding: its line in the text and the slot that it is about.
struct Finding {
  std::size_t Start = 0;   // of the line, behind its line break
  std::size_t Length = 0;  // in bytes
  int Map = -1;            // -1 for none
  int Arrow = -1;
};

struct Findings {
  std::string Text;  // as from CheckTables
  std::vector<Finding> Lines;
};

/// The findings, each on a line of its own with the line break (CR LF) in front; the empty text if
/// there are none. Changes nothing.
[[nodiscard]] std::string CheckTables();

/// The same with the place of each finding.
[[nodiscard]] Findings CheckPlaces();

}  // namespace corvane
