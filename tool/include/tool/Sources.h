// Sources: the files on the command line, their kinds, and how they are read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Result.h"
#include "tool/Layer.h"

namespace corvane {

// Determined from the name alone, in any letter case.
enum class SourceKind {
  GameExe,  // CC4.EXE
  Patch,    // *.crv
  Json,     // *.json: tables or a BTD file, depending on the contents
  Btd,      // *.btd
  Other,
};
[[nodiscard]] SourceKind KindOfSource(std::string_view path);

/// The message that the name of `path` is not that of a source.
[[nodiscard]] std::string NotASource(const std::string& path);

/// Why `path` is not a source: its name is wrong, or the file cannot be opened. Empty if it is one.
/// Does not read the contents.
[[nodiscard]] std::string SourceFault(const std::string& path);

// Whether to read the maps of the game with the tables.
enum class MapsWanted {
  Yes,      // without map files, the read fails
  IfThere,  // without map files, the layer has no rows
  No,
};

struct Source {
  std::string Path;
  SourceKind Kind = SourceKind::Other;
  bool IsBtd = false;
  Layer Tables{};                     // if IsBtd is false
  MapFile Btd{};                      // if IsBtd is true
  bool HasMaps = false;               // the Maps folder holds map files
  std::string MapsFolder{};           // the folder that was searched for them
  std::vector<std::string> Faults{};  // why map files could not be read
};

/// Reads tables with their catalogue, or a BTD file. The maps come from `game` or, if it is empty,
/// from the folder of a CC4.EXE, else from the installed game. Replaces the tables and the
/// catalogue of the process. A failure is a sentence that names the file.
[[nodiscard]] Result<Source, std::string> ReadSource(const std::string& path,
                                                     const std::string& game, MapsWanted maps);

}  // namespace corvane
