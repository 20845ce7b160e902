// The images of the four tables in CC4.EXE and in patch files: their offsets, reading and writing.
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

/// A patch file is byte-identical to GameTables in memory.
inline constexpr std::size_t PatchFileSize = 11212;

/// GamePath, a separator, and the name of the CC4.EXE in it: in capitals or, on a case-sensitive
/// system, as the file is spelled.
[[nodiscard]] std::string GameExePath();

/// The CC4.EXE that was opened, as the open dialog named it: GamePath directly followed by the
/// file's name. Only for an OpenedFile that is a CC4.EXE.
[[nodiscard]] std::string OpenedExePath();

/// Bytes past the end of a short file are zero.
[[nodiscard]] Result<GameTables> ReadGameTables(const std::string& fileName);
[[nodiscard]] Result<GameTables> ReadPatchTables(const std::string& fileName);

/// Replace the images in place and no other byte. A missing patch file is created, a missing
/// CC4.EXE is not. A failure reports the state of the file. With `known`, fail with
/// ChangedByAnother if the images, as far as the file reaches, differ from it.
[[nodiscard]] Result<> WriteGameTables(const std::string& fileName, const GameTables& tables,
                                       const GameTables* known = nullptr);
[[nodiscard]] Result<> WritePatchTables(const std::string& fileName, const GameTables& tables,
                                        const GameTables* known = nullptr);

}  // namespace corvane
