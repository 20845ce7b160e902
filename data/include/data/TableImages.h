// The four tables as images in CC4.EXE and in patch files: where they stand, and how they move.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/Result.h"
#include "data/StrategicTables.h"

namespace corvane {

inline constexpr char GameExeName[] = "CC4.EXE";  // in capitals

struct TablePlace {
  std::uint64_t GameOffset;  // from the first byte of CC4.EXE
  std::size_t PatchOffset;   // from the first byte of a patch file, and of GameTables
  std::size_t Size;          // bytes
};

/// The tables in the order in which they are read and written.
inline constexpr std::array<TablePlace, 4> TablePlaces{{
    {1147264, 0, 1204},
    {1148480, 1204, 2268},
    {1153780, 3472, 7396},
    {1200968, 10868, 344},
}};

/// A patch file is the memory of GameTables, byte for byte.
inline constexpr std::size_t PatchFileSize = 11212;

/// GamePath, a separator, and the name of the CC4.EXE there: in capitals, or where the system tells
/// letter case apart, as the file is spelled.
[[nodiscard]] std::string GameExePath();

/// The CC4.EXE that was opened, as the open dialog named it: GamePath directly followed by the
/// file's name. Only for an OpenedFile that is a CC4.EXE.
[[nodiscard]] std::string OpenedExePath();

/// What a short file does not reach is zero.
[[nodiscard]] Result<GameTables> ReadGameTables(const std::string& fileName);
[[nodiscard]] Result<GameTables> ReadPatchTables(const std::string& fileName);

/// Replaces the images in place and leaves every other byte. A patch file that does not exist is
/// created, a CC4.EXE is not. The failure tells the state of the file. With `known`, a file whose
/// images differ from these, as far as it reaches, fails with ChangedByAnother.
[[nodiscard]] Result<> WriteGameTables(const std::string& fileName, const GameTables& tables,
                                       const GameTables* known = nullptr);
[[nodiscard]] Result<> WritePatchTables(const std::string& fileName, const GameTables& tables,
                                        const GameTables* known = nullptr);

}  // namespace corvane
