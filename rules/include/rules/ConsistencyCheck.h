// Checks the tables before they are written: compares the exits of the BTD files with the
// connections, and coordinates and sizes with their ranges.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace corvane {

/// One finding: its line in the text and its slot.
struct Finding {
  std::size_t Start = 0;   // offset of the line, after its line break
  std::size_t Length = 0;  // in bytes
  int Map = -1;            // -1 for none
  int Arrow = -1;
};

struct Findings {
  std::string Text;  // as from CheckTables
  std::vector<Finding> Lines;
};

/// The findings, each preceded by a line break (CR LF); empty if there are none. Changes nothing.
[[nodiscard]] std::string CheckTables();

/// The same, with the place of each finding.
[[nodiscard]] Findings LocateFindings();

}  // namespace corvane
