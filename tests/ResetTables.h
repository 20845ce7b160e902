// Puts the tables and what goes with them back to how the program starts.
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
