#include "tool/Layer.h"

#include <algorithm>
#include <utility>

#include "base/FolderScan.h"
#include "data/MapCatalogue.h"

namespace corvane {
namespace {

// Moves the file that each row names to the index of the row.
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

MapFile MakeMapFile(std::string name, const BtdFile& file) {
  const BtdText& text = file.Text;
  return {
      std::move(name),
      file.Length,
      file.Header,
      file.VLs,
      {std::string(WithoutPadding(text.BaseName)), std::string(WithoutPadding(text.AlliedBrief)),
       std::string(WithoutPadding(text.AxisBrief))}};
}

std::string EncodeMapFile(const MapFile& file) {
  BtdText text;
  file.Text.BaseName.copy(text.BaseName.data(), text.BaseName.size());
  file.Text.AlliedBrief.copy(text.AlliedBrief.data(), text.AlliedBrief.size());
  file.Text.AxisBrief.copy(text.AxisBrief.data(), text.AxisBrief.size());
  std::string bytes;
  for (const std::byte byte : EncodeBtd(file.Header, file.VLs, text))
    bytes += std::to_integer<char>(byte);
  return bytes;
}

}  // namespace corvane
