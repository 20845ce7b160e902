// The sample game as files.
#include <array>
#include <cerrno>
#include <fstream>
#include <system_error>

#include "samples/Noise.h"
#include "samples/SampleGame.h"

namespace corvane {
namespace {

constexpr std::size_t GameExeSize = 1250000;  // bytes; the last table ends at 1201312
constexpr std::uint32_t GameExeSeed = 1944;

struct Image {
  std::size_t Offset;  // in CC4.EXE
  std::string Bytes;
};

void AppendNumber(std::string& bytes, std::int32_t number) {
  const auto bits = static_cast<std::uint32_t>(number);
  for (const unsigned shift : {0U, 8U, 16U, 24U}) bytes += static_cast<char>(bits >> shift & 0xFF);
}

void AppendNumbers(std::string& bytes, const StrRect& rect) {
  for (const std::int32_t number :
       {rect.Word0, rect.Word1, rect.Word2, rect.Left, rect.Top, rect.Width, rect.Height}) {
    AppendNumber(bytes, number);
  }
}

std::array<Image, 4> ImagesOf(const GameTables& tables) {
  std::array<Image, 4> images{{{1147264, {}}, {1148480, {}}, {1153780, {}}, {1200968, {}}}};
  for (int arrow = 0; arrow < 81; ++arrow) AppendNumbers(images[1].Bytes, tables.Arrows[arrow]);
  for (int map = 0; map < 43; ++map) {
    AppendNumbers(images[0].Bytes, tables.Tiles[map]);
    for (int from = 0; from < 43; ++from) {
      AppendNumber(images[2].Bytes, tables.Connections(from, map));
    }
    AppendNumber(images[3].Bytes, tables.Hotspots[map].CenterX);
    AppendNumber(images[3].Bytes, tables.Hotspots[map].CenterY);
  }
  return images;
}

template <typename Field>
void AppendBytes(std::string& bytes, const Field& field) {
  for (const auto byte : field) bytes += static_cast<char>(byte);
}

void AppendLocation(std::string& bytes, const VictoryLocation& vl) {
  AppendBytes(bytes, std::array{vl.TileX, vl.TileY});
  AppendBytes(bytes, vl.Opaque0);
  AppendNumber(bytes, static_cast<std::int32_t>(vl.Kind));
  AppendBytes(bytes, vl.Name);
  AppendBytes(bytes, std::array{vl.Opaque1, vl.Destination});
  AppendBytes(bytes, vl.Opaque2);
}

Result<> WriteBytes(const std::filesystem::path& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary);
  file << bytes;
  file.close();
  if (file) return {};
  return Failure{FileAction::Create, path.string(), {errno, std::generic_category()}};
}

}  // namespace

std::string GameExeBytes(const GameTables& tables) {
  std::string bytes = Noise(GameExeSeed).Bytes(GameExeSize);
  for (const Image& image : ImagesOf(tables)) {
    bytes.replace(image.Offset, image.Bytes.size(), image.Bytes);
  }
  return bytes;
}

std::string PatchBytes(const GameTables& tables) {
  std::string bytes;
  for (const Image& image : ImagesOf(tables)) bytes += image.Bytes;
  return bytes;
}

std::string BtdBytes(const SampleMap& map) {
  std::string bytes;
  AppendNumber(bytes, map.Header.Magic);
  bytes += static_cast<char>(map.Header.MapIndex);
  for (const VictoryLocation& vl : map.VLs) AppendLocation(bytes, vl);
  AppendBytes(bytes, map.Text.BaseName);
  AppendBytes(bytes, map.Text.AlliedBrief);
  AppendBytes(bytes, map.Text.AxisBrief);
  return bytes + map.Rest;
}

std::map<std::string, std::string> GameFiles(const SampleGame& game) {
  std::map<std::string, std::string> files{{"CC4.EXE", GameExeBytes(game.Tables)}};
  for (const SampleMap& map : game.Maps) files["Maps/" + map.FileName] = BtdBytes(map);
  return files;
}

Result<> WriteSampleGame(const std::filesystem::path& folder, const SampleGame& game) {
  const std::filesystem::path maps = folder / "Maps";
  std::error_code error;
  std::filesystem::create_directories(maps, error);
  if (error) return Failure{FileAction::Create, maps.string(), error};
  for (const auto& [name, bytes] : GameFiles(game)) {
    auto written = WriteBytes(folder / name, bytes);
    if (!written.Done()) return written;
  }
  return {};
}

}  // namespace corvane
