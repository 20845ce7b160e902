// What a path on the command line stands for, and how it is read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Result.h"
#include "tool/Layer.h"

namespace corvane {

// Told from the name alone, in any letter case.
enum class SourceKind {
  GameExe,  // CC4.EXE
  Patch,    // *.crv
  Json,     // *.json: tables or a BTD file, which its contents tell
  Btd,      // *.btd
  Other,
};
[[nodiscard]] SourceKind KindOfSource(std::string_view path);

/// Says that the name of `path` is not that of a source.
[[nodiscard]] std::string NotASource(const std::string& path);

/// Why `path` is not a source: its name is wrong, or no file opens there. Empty if it is one. Does
/// not read the contents.
[[nodiscard]] std::string SourceFault(const std::string& path);

// Whether the maps of the game are read with the tables.
enum class MapsWanted {
  Yes,      // without map files, the read fails
  IfThere,  // without any, the layer has no rows
  No,
};

struct Source {
  std::string Path;
  SourceKind Kind = SourceKind::Other;
  bool IsBtd = false;
  Layer Tables{};                     // unless it is a BTD file
  MapFile Btd{};                      // if it is one
  bool HasMaps = false;               // the Maps folder holds map files
  std::string MapsFolder{};           // where they were looked for
  std::vector<std::string> Faults{};  // sentences: map files that could not be read
};

/// Reads tables with their catalogue, or a BTD file. The maps are those in `game` or, if that is
/// empty, beside a CC4.EXE, else those of the installed game. The tables and the catalogue of the
/// process are those of the source last read. A failure is a sentence that names the file.
[[nodiscard]] Result<Source, std::string> ReadSource(const std::string& path,
                                                     const std::string& game, MapsWanted maps);

}  // namespace corvane
