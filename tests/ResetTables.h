// Puts everything that lives as long as the process back to how the program starts.
#pragma once

#include "MapCatalogue.h"
#include "StrategicTables.h"

namespace corvane {

inline void ResetTables() {
  StrMap = {};
  StrArrow = {};
  MapHotspots = {};
  MapConnections = {};
  VLDest = {};
  GamePath.clear();
  OpenedFile.clear();
  TablesDirty = false;
  MapRows.clear();
  ArrowRows.clear();
}

}  // namespace corvane
