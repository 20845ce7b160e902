// Layers and BTD files as text: listings for people and for version control, and differences.
// Listings show every byte of the tables and of a BTD record. Neither contains control characters.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tool/Layer.h"

namespace corvane {

/// One fact per line. Equal layers give equal listings on every system with the same ANSI code
/// page.
[[nodiscard]] std::string ListTables(const Layer& layer);
[[nodiscard]] std::string ListBtd(const MapFile& file);

using Lines = std::vector<std::string>;  // without their line ends

/// The changes from `before` to `after`, field by field. Maps are named by their rows.
[[nodiscard]] Lines TableDifferences(const Layer& before, const Layer& after);
[[nodiscard]] Lines BtdDifferences(const MapFile& before, const MapFile& after);
/// Compares the files of two Maps folders. The names of the layers follow "only in ".
[[nodiscard]] Lines FileDifferences(const Layer& before, const Layer& after,
                                    std::string_view beforeName, std::string_view afterName);

}  // namespace corvane
