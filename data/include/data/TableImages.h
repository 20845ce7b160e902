// The four tables as images in CC4.EXE and in patch files: where they stand, and how they move.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/FileResult.h"

namespace corvane {

struct TablePlace {
  void* Table;
  std::size_t Size;          // bytes
  std::uint64_t GameOffset;  // from the first byte of CC4.EXE
};

/// The tables in the order in which they are read, written, and stand in a patch file.
extern const std::array<TablePlace, 4> TablePlaces;

constexpr char GameExeName[] = "CC4.EXE";     // in capitals
constexpr std::size_t PatchFileSize = 11212;  // bytes: the four images back to back

/// Full name of the CC4.EXE in GamePath, spelled in capitals, or as the file that stands there is
/// spelled on a system that tells letter case apart.
[[nodiscard]] std::string GameExePath();

/// A read fills all four tables, or fails and changes none; what a short file does not reach is
/// zero. A write replaces the images in place and leaves every other byte; after a failure the
/// file is as it was, or the result says that it is not.
FileResult ReadGameTables();
FileResult WriteGameTables();
FileResult ReadPatchTables(const std::string& fileName);
FileResult WritePatchTables(const std::string& fileName);

}  // namespace corvane
