#include "Fields.h"
#include "Words.h"
#include "data/MapCatalogue.h"
#include "tool/Printable.h"
#include "tool/Text.h"

namespace corvane {
namespace {

void AddLine(std::string& listing, std::string_view name, std::string_view fact) {
  listing.append(name).append(name.empty() ? "" : ": ").append(fact).append("\n");
}

template <typename Record, std::size_t Count>
std::string Facts(const Record& record, const std::array<NumberField<Record>, Count>& fields) {
  std::string facts;
  for (const auto& field : fields) {
    if (!facts.empty()) facts += ", ";
    facts.append(field.Label).append(" ") += std::to_string(record.*field.Number);
  }
  return facts;
}

std::string OpaqueFact(const StrRect& rect) {
  return "opaque words " + std::to_string(rect.Word0) + ", " + std::to_string(rect.Word1) + ", " +
         std::to_string(rect.Word2);
}

void ListMap(std::string& listing, const Layer& layer, int map) {
  const std::string name = MapName(layer, map);
  AddLine(listing, name, "tile " + Facts(layer.Tiles[map], PlaceFields));
  AddLine(listing, name, "tile " + OpaqueFact(layer.Tiles[map]));
  AddLine(listing, name, "hotspot " + Facts(layer.Hotspots[map], HotspotFields));
  for (int to = 0; to < MapSlotCount; ++to) {
    const std::int32_t arrow = layer.Connections(map, to);
    if (arrow == NoConnection) continue;
    AddLine(listing, name,
            "connection to " + MapName(layer, to) + " by arrow " + ArrowNumber(arrow));
  }
}

std::string DestinationFact(const VictoryLocation& vl) {
  if (vl.Destination == OffMap) return " off the map";
  return " to map " + ThreeDigits(vl.Destination);
}

std::string VLFact(const VictoryLocation& vl) {
  const bool isExit = vl.Kind == VLKind::Exit;
  std::string fact = KindName(vl.Kind) + (isExit ? DestinationFact(vl) : "") + ", X " +
                     std::to_string(vl.TileX) + ", Y " + std::to_string(vl.TileY) + ", " +
                     QuotedField(vl.Name) + ", opaque bytes " + HexBytes(vl.Opaque0) + ' ' +
                     HexBytes({&vl.Opaque1, 1}) + ' ' + HexBytes(vl.Opaque2);
  if (!isExit) fact += ", destination " + std::to_string(vl.Destination);
  return fact;
}

void ListFile(std::string& listing, const std::string& name, const MapFile& file) {
  AddLine(listing, name, "length " + std::to_string(file.Length) + " bytes");
  AddLine(listing, name, "magic number " + std::to_string(file.Header.Magic));
  AddLine(listing, name, "map number " + std::to_string(file.Header.MapIndex));
  AddLine(listing, name, "base name " + QuotedField(file.Text.BaseName));
  for (std::size_t vl = 0; vl < file.VLs.size(); ++vl)
    AddLine(listing, name, "VL" + std::to_string(vl) + " " + VLFact(file.VLs[vl]));
  for (const BriefField& brief : BriefFields) {
    for (const std::string& line : BriefLines(file.Text.*brief.Text))
      AddLine(listing, name, std::string(brief.Label) + ": " + line);
  }
}

}  // namespace

std::string ListTables(const Layer& layer) {
  std::string listing;
  if (layer.Rows.empty()) listing = "no map files\n";
  for (int map = 0; map < MapSlotCount; ++map) ListMap(listing, layer, map);
  for (int arrow = 0; arrow < ArrowSlotCount; ++arrow) {
    const std::string name = "arrow " + ThreeDigits(arrow);
    AddLine(listing, name, Facts(layer.Arrows[arrow], PlaceFields));
    AddLine(listing, name, OpaqueFact(layer.Arrows[arrow]));
  }
  for (std::size_t map = 0; map < layer.Files.size(); ++map)
    ListFile(listing, MapName(layer, static_cast<int>(map)), layer.Files[map]);
  return listing;
}

std::string ListBtd(const MapFile& file) {
  std::string listing;
  ListFile(listing, {}, file);
  return listing;
}

}  // namespace corvane
