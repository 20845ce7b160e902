// The strategic layer in the form that the tool uses: a copy of the four tables and of their map
// files, so that two layers can be compared.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/BtdFile.h"
#include "data/StrategicTables.h"

namespace corvane {

/// The text fields of a BTD file, each without its trailing NULs.
struct MapText {
  std::string BaseName;
  std::string AlliedBrief;
  std::string AxisBrief;
};

/// One BTD file of the Maps folder.
struct MapFile {
  std::string Name;          // as the folder lists it
  std::uint64_t Length = 0;  // of the complete file, in bytes
  BtdHeader Header{};
  VictoryLocations VLs{};
  MapText Text{};
};

struct Layer {
  StrMapTable Tiles;
  StrArrowTable Arrows;
  ConnectionTable Connections;
  HotspotTable Hotspots;
  DestinationTable Destinations;
  std::vector<std::string> Rows{};  // the catalogue: the position of a row is its map slot
  std::vector<MapFile> Files{};     // the file of each row
  bool FilesLeftOut = false;        // the folder holds more files than map slots
};

/// The tables and the catalogue of the process, with the files that its rows name. `files` may be
/// in any order.
[[nodiscard]] Layer CaptureLayer(std::vector<MapFile> files);

/// The four tables alone.
[[nodiscard]] GameTables TablesOf(const Layer& layer);

/// The row of a map slot, or its three digits if it has no row.
[[nodiscard]] std::string MapLabel(const Layer& layer, int map);

/// A BTD file as it was read.
[[nodiscard]] MapFile MakeMapFile(std::string name, const BtdFile& file);

/// The 8526 bytes of a BTD file that hold these records.
[[nodiscard]] std::string EncodeMapFile(const MapFile& file);

}  // namespace corvane
