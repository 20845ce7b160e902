// A temporary folder, and the program's state as at start-up. The folder and any injected fault are
// removed when the test ends.
#pragma once

#include <gtest/gtest.h>

#include <random>

#include "Faults.h"
#include "FileBytes.h"
#include "base/FileRanges.h"
#include "data/GameFolder.h"
#include "data/MapCatalogue.h"
#include "data/StrategicTables.h"
#include "samples/SampleGame.h"

/// Resets the tables and the related state to their values at program start.
inline void ResetTables() {
  using namespace corvane;
  Tables = {};
  ForgetFiles();
  VLDest = {};
  GamePath.clear();
  OpenedFile.clear();
  TablesDirty = false;
  MapRows.clear();
  ArrowRows.clear();
}

struct TestFolder {
  TestFolder() {
    ResetTables();
    std::filesystem::create_directories(Path);
  }
  ~TestFolder() {
    corvane::InjectedFault = nullptr;
    std::error_code left;  // a leftover folder is harmless
    std::filesystem::remove_all(Path, left);
  }
  std::string operator/(const std::string& name) const { return (Path / name).string(); }
  void Put(const std::string& name, const std::string& content = {}) const {
    std::filesystem::create_directories((Path / name).parent_path());
    std::ofstream(Path / name, std::ios::binary) << content;
  }
  std::string Get(const std::string& name) const { return FileBytes(Path / name); }
  std::filesystem::path Path = std::filesystem::temp_directory_path() /
                               ("corvane-test-" + std::to_string(std::random_device()()));
};

/// The message that the user would see; empty on success.
inline std::string MessageOf(const auto& result) {
  return result.Done() ? std::string() : FailureMessage(result.Error());
}

/// Saves bytes into a file, from `offset` on.
inline corvane::Result<> SaveBytes(const std::string& path, std::string_view bytes,
                                   corvane::IfMissing missing = corvane::IfMissing::Fail,
                                   std::uint64_t offset = 0) {
  const corvane::WriteRange range{offset, std::as_bytes(std::span(bytes))};
  return corvane::SaveInPlace(path, {&range, 1}, missing);
}

/// Fails every file step from this index on, counted from 0; if a kind is given, only steps of that
/// kind.
inline void FailFrom(int first, std::optional<corvane::FileStep> kind = {}) {
  using namespace corvane;
  InjectedFault = [step = 0, first, kind](FileStep now, Moment moment, std::size_t&) mutable {
    if (moment == Moment::After || (kind && now != *kind) || step++ < first)
      return std::error_code();
    return std::make_error_code(std::errc::io_error);
  };
}
