// A game made from nothing, to try the program out and for its tests: a plain description, which a
// test may alter, and writers that turn it into files. These state the layout of the files once
// more, by themselves, so that the code for the real files can be held against them.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "base/Result.h"
#include "data/BtdFile.h"
#include "data/StrategicTables.h"

namespace corvane {

struct SampleMap {
  std::string FileName;
  BtdHeader Header;
  VictoryLocations VLs{};
  BtdText Text;
  std::string Rest;  // the game's bytes behind the part that is known
};

struct SampleGame {
  GameTables Tables;
  std::vector<SampleMap> Maps;
};

/// 43 maps and 45 pairs of connections which pass the consistency check. Every arrow is used.
[[nodiscard]] SampleGame MakeSampleGame();

/// The whole contents of a file.
[[nodiscard]] std::string GameExeBytes(const GameTables& tables);
[[nodiscard]] std::string PatchBytes(const GameTables& tables);
[[nodiscard]] std::string BtdBytes(const SampleMap& map);

/// The contents of CC4.EXE and of the files in Maps, by their place in the game's folder.
[[nodiscard]] std::map<std::string, std::string> GameFiles(const SampleGame& game);

/// Makes `folder` with these files in it.
[[nodiscard]] Result<> WriteSampleGame(const std::filesystem::path& folder, const SampleGame& game);

}  // namespace corvane
