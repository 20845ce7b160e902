// The strategic layer as the tool works on it: a copy of the four tables and of the map files that
// go with them, so that two layers can stand side by side.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/BtdFile.h"
#include "data/StrategicTables.h"

namespace corvane {

/// One BTD file of the Maps folder.
struct MapFile {
  std::string Name;          // as the folder lists it
  std::uint64_t Length = 0;  // bytes of the whole file
  BtdHeader Header{};
  VictoryLocations VLs{};
  BtdText Text{};
};

struct Layer {
  StrMapTable Tiles;
  StrArrowTable Arrows;
  ConnectionTable Connections;
  HotspotTable Hotspots;
  DestinationTable Destinations;
  std::vector<std::string> Rows{};  // the catalogue: the position of a row is its map slot
  std::vector<MapFile> Files{};     // the file of each row
  bool FilesLeftOut = false;        // the folder holds more files than there are map slots
};

/// The tables and the catalogue of the process, with the files that its rows name, in any order.
[[nodiscard]] Layer CaptureLayer(std::vector<MapFile> files);

/// The four tables alone, as the files hold them.
[[nodiscard]] GameTables TablesOf(const Layer& layer);

/// The row of a map slot, or its three digits where it has no row.
[[nodiscard]] std::string MapLabel(const Layer& layer, int map);

/// The 8526 bytes of a BTD file that hold these records.
[[nodiscard]] std::string BtdImage(const MapFile& file);

}  // namespace corvane
