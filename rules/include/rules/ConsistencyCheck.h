// Judges the tables before they are written: the exits of the BTD files against the connections,
// and coordinates and sizes against their ranges.
#pragma once

#include <string>

namespace corvane {

/// The findings, each on a line of its own with the line break (CR LF) in front; the empty text if
/// there are none. Changes nothing.
[[nodiscard]] std::string CheckTables();

}  // namespace corvane
