#include "tool/Layer.h"

#include <cstring>

#include "Paths.h"
#include "base/FolderScan.h"
#include "data/MapCatalogue.h"

namespace corvane {
namespace {

MapFile ReadMapFile(const std::string& name, std::vector<std::string>& faults) {
  const std::string path = BtdPath(name, name);
  const Result<BtdFile> read = ReadBtd(path);
  if (read.Done()) return {name, FileLength(path), read->Header, read->VLs, read->Text};
  faults.push_back(FailureMessage(read.Error()));
  return {.Name = name};
}

bool HasFilesLeftOut() {
  std::vector<std::string> names;
  const std::string folder = GamePath + Separator + NameInFolder(GamePath, "Maps");
  static_cast<void>(ScanFolder(folder, ".BTD", MapSlotCount + 1, names));  // listed once already
  return names.size() > MapSlotCount;
}

}  // namespace

Layer CaptureLayer(std::vector<std::string>& faults) {
  Layer layer{.Tiles = StrMap,
              .Arrows = StrArrow,
              .Connections = MapConnections,
              .Hotspots = MapHotspots,
              .Destinations = VLDest,
              .Rows = MapRows};
  for (const std::string& row : MapRows)
    layer.Files.push_back(ReadMapFile(RowFileName(row), faults));
  layer.FilesLeftOut = MapRows.size() >= MapSlotCount && HasFilesLeftOut();
  return layer;
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
