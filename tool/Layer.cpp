#include "tool/Layer.h"

#include <cstring>

#include "Paths.h"
#include "base/FolderScan.h"
#include "data/MapCatalogue.h"

namespace corvane {
namespace {

std::string MapsFolder() { return GamePath + Separator + NameInFolder(GamePath, "Maps"); }

// In place: a map file is too large to be moved about.
void ReadMapFile(const std::string& folder, MapFile& file, std::vector<std::string>& faults) {
  const std::string path = folder + Separator + file.Name;  // spelled as the folder lists it
  const Result<BtdFile> read = ReadBtd(path);
  if (!read.Done()) return faults.push_back(FailureMessage(read.Error()));
  file.Length = FileLength(path);
  file.Header = read->Header;
  file.VLs = read->VLs;
  file.Text = read->Text;
}

bool HasFilesLeftOut(const std::string& folder) {
  std::vector<std::string> names;
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
  if (MapRows.empty()) return layer;
  const std::string folder = MapsFolder();
  layer.Files.resize(MapRows.size());
  for (std::size_t row = 0; row < MapRows.size(); ++row) {
    layer.Files[row].Name = RowFileName(MapRows[row]);
    ReadMapFile(folder, layer.Files[row], faults);
  }
  layer.FilesLeftOut = MapRows.size() >= MapSlotCount && HasFilesLeftOut(folder);
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
