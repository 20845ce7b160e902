// The tables of the strategic layer and the file they came from: one set for the life of the
// process, which the rest of the program reads and edits in place.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace corvane {

constexpr int MapSlotCount = 43;
constexpr int ArrowSlotCount = 81;
constexpr int VLSlotCount = 10;

constexpr std::int32_t NoConnection = -1;  // in MapConnections; any other value is a connection
constexpr std::int32_t NotAnExit = -1;     // in VLDest
constexpr std::int32_t OffMap = 254;       // in VLDest and BTD files: an exit off the map

[[nodiscard]] constexpr bool IsMapSlot(int slot) { return slot >= 0 && slot < MapSlotCount; }

/// One entry of StrMap or StrArrow, laid out as in the game's files. The meaning of the three words
/// is unknown; only clearing a slot changes them.
struct StrRect {
  std::int32_t Word0 = 0;
  std::int32_t Word1 = 0;
  std::int32_t Word2 = 0;
  std::int32_t Left = 0;
  std::int32_t Top = 0;
  std::int32_t Width = 0;
  std::int32_t Height = 0;
  bool operator==(const StrRect&) const = default;
};

/// The hotspot of a map's tile, in the game's coordinates.
struct Hotspot {
  std::int32_t CenterX = 0;
  std::int32_t CenterY = 0;
  bool operator==(const Hotspot&) const = default;
};

/// A table indexed by slot. Outside the table, reads give a blank record and writes have no effect.
template <typename Record, int Count>
class SlotTable {
 public:
  Record& operator[](int slot) {
    if (slot >= 0 && slot < Count) return Records[static_cast<std::size_t>(slot)];
    static Record Nowhere;
    return Nowhere = Record{};
  }
  const Record& operator[](int slot) const {
    static const Record Blank;
    return slot >= 0 && slot < Count ? Records[static_cast<std::size_t>(slot)] : Blank;
  }
  bool operator==(const SlotTable&) const = default;

 private:
  std::array<Record, static_cast<std::size_t>(Count)> Records{};
};

/// A table indexed by two slots. With FirstFastest, the first index varies fastest in memory.
/// Outside the table, reads give -1 and writes have no effect.
template <int FirstCount, int SecondCount, bool FirstFastest>
class CellTable {
 public:
  std::int32_t& operator()(int first, int second) {
    if (Holds(first, second)) return Cells[CellOf(first, second)];
    static std::int32_t Nowhere;
    return Nowhere = -1;
  }
  std::int32_t operator()(int first, int second) const {
    return Holds(first, second) ? Cells[CellOf(first, second)] : -1;
  }
  bool operator==(const CellTable&) const = default;

 private:
  static constexpr bool Holds(int first, int second) {
    return first >= 0 && first < FirstCount && second >= 0 && second < SecondCount;
  }
  static constexpr std::size_t CellOf(int first, int second) {
    return static_cast<std::size_t>(FirstFastest ? first + FirstCount * second
                                                 : first * SecondCount + second);
  }

  std::array<std::int32_t, static_cast<std::size_t>(FirstCount) * SecondCount> Cells{};
};

using StrMapTable = SlotTable<StrRect, MapSlotCount>;
using StrArrowTable = SlotTable<StrRect, ArrowSlotCount>;
using HotspotTable = SlotTable<Hotspot, MapSlotCount>;
using ConnectionTable = CellTable<MapSlotCount, MapSlotCount, true>;
using DestinationTable = CellTable<MapSlotCount, VLSlotCount, false>;

/// True if a victory location of `map` is an exit to `destination`.
[[nodiscard]] inline bool HasExitTo(const DestinationTable& exits, int map, int destination) {
  for (int vl = 0; vl < VLSlotCount; ++vl) {
    if (exits(map, vl) == destination) return true;
  }
  return false;
}

/// The four tables of the game's files, in the order of a patch file.
struct GameTables {
  StrMapTable Tiles;
  StrArrowTable Arrows;
  ConnectionTable Connections;  // (from, to): NoConnection, or the arrow slot
  HotspotTable Hotspots;
  bool operator==(const GameTables&) const = default;
};

inline GameTables Tables;
inline StrMapTable& StrMap = Tables.Tiles;
inline StrArrowTable& StrArrow = Tables.Arrows;
inline ConnectionTable& MapConnections = Tables.Connections;
inline HotspotTable& MapHotspots = Tables.Hotspots;
inline DestinationTable VLDest;  // (map, vl): NotAnExit, OffMap, or where the exit leads

// The folder of CC4.EXE and Maps, which may end in a separator; the name of the file last opened,
// without its folder, in the letter case of the file system; and whether the tables were edited
// since they were last opened or saved.
inline std::string GamePath;
inline std::string OpenedFile;
inline bool TablesDirty = false;

}  // namespace corvane
