// A sample game for tests and for trying the program out: plain records, which a test may change,
// and writers that turn them into files. The writers define the layout of the files independently,
// so that tests can compare the real code with them.
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
  std::string Rest;  // the game's bytes after the known part
};

struct SampleGame {
  GameTables Tables;
  std::vector<SampleMap> Maps;
};

/// 43 maps and 45 pairs of connections that pass the consistency check. Every arrow is used.
[[nodiscard]] SampleGame MakeSampleGame();

/// The complete contents of a file.
[[nodiscard]] std::string GameExeBytes(const GameTables& tables);
[[nodiscard]] std::string PatchBytes(const GameTables& tables);
[[nodiscard]] std::string BtdBytes(const SampleMap& map);

/// The contents of CC4.EXE and of the files in Maps, by path relative to the game's folder.
[[nodiscard]] std::map<std::string, std::string> GameFiles(const SampleGame& game);

/// Creates `folder` and these files in it.
[[nodiscard]] Result<> WriteSampleGame(const std::filesystem::path& folder, const SampleGame& game);

}  // namespace corvane
