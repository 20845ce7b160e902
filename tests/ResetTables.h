// Resets the tables and the related state to their values at program start.
#pragma once

#include "data/GameFolder.h"
#include "data/MapCatalogue.h"
#include "data/StrategicTables.h"

namespace corvane {

inline void ResetTables() {
  Tables = {};
  ForgetFiles();
  VLDest = {};
  GamePath.clear();
  OpenedFile.clear();
  TablesDirty = false;
  MapRows.clear();
  ArrowRows.clear();
}

}  // namespace corvane
