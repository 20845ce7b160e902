// Layers and BTD files in words: listings for people and for version control, and differences.
// Every byte that the files hold shows in them, and nothing in them steers a terminal.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tool/Layer.h"

namespace corvane {

/// A fact a line. Equal layers give equal listings, on every system.
[[nodiscard]] std::string ListTables(const Layer& layer);
[[nodiscard]] std::string ListBtd(const MapFile& file);

using Lines = std::vector<std::string>;  // without their line ends

/// What `after` has that `before` has not, field by field. Maps are called by their rows.
[[nodiscard]] Lines TableDifferences(const Layer& before, const Layer& after);
[[nodiscard]] Lines BtdDifferences(const MapFile& before, const MapFile& after);
/// Of the files of two Maps folders; "only in " names the layers as given here.
[[nodiscard]] Lines FileDifferences(const Layer& before, const Layer& after,
                                    std::string_view beforeName, std::string_view afterName);

}  // namespace corvane
