// The message shown after a catalogue is loaded.
#pragma once

#include <string>

#include "data/MapCatalogue.h"

namespace corvane {

/// Empty if all map files were read.
[[nodiscard]] std::string CatalogueMessage(const CatalogueReport& report);

}  // namespace corvane
