// A folder of a test's own, and around it a program as it starts. The folder and any injected fault
// are gone when the test ends.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "Faults.h"
#include "ResetTables.h"
#include "base/Result.h"
#include "samples/SampleGame.h"

/// What stands in a file; nothing if there is none.
inline std::string Bytes(const std::filesystem::path& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

struct TestFolder {
  TestFolder() {
    corvane::ResetTables();
    std::filesystem::create_directories(Path);
  }
  ~TestFolder() {
    corvane::InjectedFault = nullptr;
    std::error_code left;  // which harms nobody
    std::filesystem::remove_all(Path, left);
  }
  std::string operator/(const std::string& name) const { return (Path / name).string(); }
  void Put(const std::string& name, const std::string& content = {}) const {
    std::filesystem::create_directories((Path / name).parent_path());
    std::ofstream(Path / name, std::ios::binary) << content;
  }
  std::string Get(const std::string& name) const { return Bytes(Path / name); }
  std::filesystem::path Path = std::filesystem::temp_directory_path() /
                               ("corvane-test-" + std::to_string(std::random_device()()));
};

/// What the user would be told; empty if nothing failed.
inline std::string Told(const auto& result) {
  return result.Done() ? std::string() : FailureMessage(result.Error());
}

/// Every step on a file from the one of this number on, counted from 0, fails.
inline void FailFrom(int first) {
  using namespace corvane;
  InjectedFault = [step = 0, first](FileStep, Moment moment, std::size_t&) mutable {
    if (moment == Moment::After || step++ < first) return std::error_code();
    return std::make_error_code(std::errc::io_error);
  };
}
