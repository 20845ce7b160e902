#include "data/TableImages.h"

#include <bit>
#include <cstring>
#include <span>
#include <vector>

#include "base/FileRanges.h"
#include "base/FolderScan.h"
#include "base/LetterCase.h"
#include "data/StrategicTables.h"

namespace corvane {

// The tables move as they lie in memory.
static_assert(std::endian::native == std::endian::little);
static_assert(sizeof(StrMapTable) == 1204 && sizeof(StrArrowTable) == 2268);
static_assert(sizeof(ConnectionTable) == 7396 && sizeof(HotspotTable) == 344);
static_assert(offsetof(StrRect, Left) == 12 && offsetof(StrRect, Height) == 24);
static_assert(offsetof(Hotspot, CenterY) == 4);

constinit const std::array<TablePlace, 4> TablePlaces{{
    {&StrMap, sizeof StrMap, 1147264},
    {&StrArrow, sizeof StrArrow, 1148480},
    {&MapConnections, sizeof MapConnections, 1153780},
    {&MapHotspots, sizeof MapHotspots, 1200968},
}};

namespace {

// All four images back to back, so that a read is committed whole.
using Images = std::array<std::byte, PatchFileSize>;

void CommitTables(const Images& images) {
  const std::byte* image = images.data();
  for (const TablePlace& place : TablePlaces) {
    std::memcpy(place.Table, image, place.Size);
    image += place.Size;
  }
}

std::span<const std::byte> ImageOf(const TablePlace& place) {
  return {static_cast<const std::byte*>(place.Table), place.Size};
}

}  // namespace

std::string GameExePath() {
  const bool opened = InCapitals(OpenedFile) == GameExeName;
  return GamePath + Separator + NameInFolder(GamePath, opened ? OpenedFile : GameExeName);
}

FileResult ReadGameTables() {
  Images images;
  std::array<ReadRange, TablePlaces.size()> ranges;
  std::span<std::byte> rest = images;
  for (std::size_t table = 0; table < ranges.size(); ++table) {
    ranges[table] = {TablePlaces[table].GameOffset, rest.first(TablePlaces[table].Size)};
    rest = rest.subspan(TablePlaces[table].Size);
  }
  FileResult result = ReadRanges(GameExePath(), ranges);
  if (result.Done()) CommitTables(images);
  return result;
}

FileResult WriteGameTables() {
  std::array<WriteRange, TablePlaces.size()> ranges;
  for (std::size_t table = 0; table < ranges.size(); ++table) {
    ranges[table] = {TablePlaces[table].GameOffset, ImageOf(TablePlaces[table])};
  }
  return SaveInPlace(GameExePath(), ranges, IfMissing::Fail);
}

FileResult ReadPatchTables(const std::string& fileName) {
  Images images;
  const ReadRange whole{0, images};
  FileResult result = ReadRanges(fileName, {&whole, 1});
  if (result.Done()) CommitTables(images);
  return result;
}

FileResult WritePatchTables(const std::string& fileName) {
  std::vector<std::byte> images;
  for (const TablePlace& place : TablePlaces) {
    const std::span<const std::byte> image = ImageOf(place);
    images.insert(images.end(), image.begin(), image.end());
  }
  const WriteRange whole{0, images};
  return SaveInPlace(fileName, {&whole, 1}, IfMissing::Create);
}

}  // namespace corvane
