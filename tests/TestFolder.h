// A folder of a test's own, and around it a program as it starts.
#pragma once

#include <gtest/gtest.h>

#include "ResetTables.h"
#include "SampleGame.h"
#include "data/platform/TemporaryFolder.h"

struct TestFolder : TemporaryFolder {
  TestFolder() {
    corvane::ResetTables();
    std::filesystem::create_directories(Path);
  }
  std::string Get(const std::string& name) const {
    std::string bytes(static_cast<std::size_t>(std::filesystem::file_size(Path / name)), '\0');
    std::ifstream(Path / name, std::ios::binary)
        .read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
  }
};

/// Every step on a file from the one of this number on, counted from 0, fails.
inline void FailFrom(int first) {
  corvane::InjectedFault = [step = 0, first](corvane::FileStep, std::size_t&) mutable {
    return step++ < first ? std::error_code() : std::make_error_code(std::errc::io_error);
  };
}
