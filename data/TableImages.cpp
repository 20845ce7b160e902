#include "data/TableImages.h"

#include <bit>
#include <span>

#include "base/FileRanges.h"
#include "base/FolderScan.h"
#include "base/LetterCase.h"

namespace corvane {

// The tables are copied from and to memory unchanged.
static_assert(std::endian::native == std::endian::little);
static_assert(sizeof(GameTables) == PatchFileSize);
static_assert(offsetof(GameTables, Tiles) == TablePlaces[0].PatchOffset);
static_assert(offsetof(GameTables, Arrows) == TablePlaces[1].PatchOffset);
static_assert(offsetof(GameTables, Connections) == TablePlaces[2].PatchOffset);
static_assert(offsetof(GameTables, Hotspots) == TablePlaces[3].PatchOffset);
static_assert(offsetof(StrRect, Left) == 12 && offsetof(StrRect, Height) == 24);
static_assert(offsetof(Hotspot, CenterY) == 4);

namespace {

// The ranges of `bytes`, the memory of GameTables, with their offsets in CC4.EXE.
template <class Range, class Bytes>
std::array<Range, TablePlaces.size()> GameRanges(Bytes bytes) {
  std::array<Range, TablePlaces.size()> ranges;
  for (std::size_t table = 0; table < ranges.size(); ++table) {
    const TablePlace& place = TablePlaces[table];
    ranges[table].Offset = place.GameOffset;
    ranges[table].Bytes = bytes.subspan(place.PatchOffset, place.Size);
  }
  return ranges;
}

std::span<std::byte> BytesOf(GameTables& tables) {
  return std::as_writable_bytes(std::span(&tables, 1));
}

std::span<const std::byte> BytesOf(const GameTables& tables) {
  return std::as_bytes(std::span(&tables, 1));
}

}  // namespace

std::string GameExePath() {
  const bool opened = ToUpper(OpenedFile) == GameExeName;
  return JoinPath(GamePath, NameInFolder(GamePath, opened ? OpenedFile : GameExeName));
}

std::string OpenedExePath() { return GamePath + NameInFolder(GamePath, OpenedFile); }

Result<GameTables> ReadGameTables(const std::string& fileName) {
  GameTables tables;
  const auto read = ReadRanges(fileName, GameRanges<ReadRange>(BytesOf(tables)));
  if (!read.Done()) return read.Error();
  return tables;
}

Result<GameTables> ReadPatchTables(const std::string& fileName) {
  GameTables tables;
  const ReadRange whole{0, BytesOf(tables)};
  const auto read = ReadRanges(fileName, {&whole, 1});
  if (!read.Done()) return read.Error();
  return tables;
}

Result<> WriteGameTables(const std::string& fileName, const GameTables& tables,
                         const GameTables* known) {
  auto ranges = GameRanges<WriteRange>(BytesOf(tables));
  if (known != nullptr) {
    const auto old = GameRanges<WriteRange>(BytesOf(*known));
    for (std::size_t table = 0; table < ranges.size(); ++table)
      ranges[table].Known = old[table].Bytes;
  }
  return SaveInPlace(fileName, ranges, IfMissing::Fail);
}

Result<> WritePatchTables(const std::string& fileName, const GameTables& tables,
                          const GameTables* known) {
  WriteRange whole{0, BytesOf(tables)};
  if (known != nullptr) whole.Known = BytesOf(*known);
  return SaveInPlace(fileName, {&whole, 1}, IfMissing::Create);
}

}  // namespace corvane
