#include "tool/Layer.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "base/FolderScan.h"
#include "data/MapCatalogue.h"

namespace corvane {
namespace {

std::string MapsFolder() { return GamePath + Separator + NameInFolder(GamePath, "Maps"); }

// Moves the file that each row names to the index of the row. Swaps, since a map file is 8 KiB.
void ArrangeByRow(std::vector<MapFile>& files) {
  for (std::size_t row = 0; row < std::min(MapRows.size(), files.size()); ++row) {
    const auto place = files.begin() + static_cast<std::ptrdiff_t>(row);
    const auto named = std::find_if(
        place, files.end(),
        [name = RowFileName(MapRows[row])](const MapFile& file) { return file.Name == name; });
    if (named != files.end() && named != place) std::swap(*place, *named);
  }
}

bool HasFilesLeftOut() {
  std::vector<std::string> names;
  static_cast<void>(ScanFolder(MapsFolder(), ".BTD", MapSlotCount + 1, names));  // already reported
  return names.size() > MapSlotCount;
}

}  // namespace

Layer CaptureLayer(std::vector<MapFile> files) {
  ArrangeByRow(files);
  return {.Tiles = StrMap,
          .Arrows = StrArrow,
          .Connections = MapConnections,
          .Hotspots = MapHotspots,
          .Destinations = VLDest,
          .Rows = MapRows,
          .Files = std::move(files),
          .FilesLeftOut = MapRows.size() >= MapSlotCount && HasFilesLeftOut()};
}

GameTables TablesOf(const Layer& layer) {
  return {layer.Tiles, layer.Arrows, layer.Connections, layer.Hotspots};
}

std::string MapLabel(const Layer& layer, int map) {
  const bool known = map >= 0 && static_cast<std::size_t>(map) < layer.Rows.size();
  return known ? layer.Rows[static_cast<std::size_t>(map)] : ThreeDigits(map);
}

std::string BtdImage(const MapFile& file) {
  std::string image(BtdSize, '\0');
  std::memcpy(image.data(), &file.Header.Magic, sizeof file.Header.Magic);
  image[sizeof file.Header.Magic] = static_cast<char>(file.Header.MapIndex);
  std::memcpy(image.data() + BtdHeaderSize, file.VLs.data(), sizeof file.VLs);
  std::memcpy(image.data() + BtdHeadSize, &file.Text, sizeof file.Text);
  return image;
}

}  // namespace corvane
