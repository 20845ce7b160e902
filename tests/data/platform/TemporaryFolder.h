// A folder of a test's own. It and any injected fault are gone when the test ends.
#pragma once
#include <filesystem>
#include <fstream>
#include <random>

#include "platform/RawFile.h"

struct TemporaryFolder {
  ~TemporaryFolder() { corvane::InjectedFault = nullptr, std::filesystem::remove_all(Path); }
  std::string operator/(const std::string& name) const { return (Path / name).string(); }
  void Put(const std::string& name, const std::string& content = {}) const {
    std::filesystem::create_directories((Path / name).parent_path());
    std::ofstream(Path / name, std::ios::binary) << content;
  }
  std::filesystem::path Path = std::filesystem::temp_directory_path() /
                               ("corvane-test-" + std::to_string(std::random_device()()));
};
