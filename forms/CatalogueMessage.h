// What the user is told after a catalogue was loaded.
#pragma once

#include <string>

#include "data/MapCatalogue.h"

namespace corvane {

/// The empty text if all map files were read.
[[nodiscard]] std::string CatalogueMessage(const CatalogueReport& report);

}  // namespace corvane
