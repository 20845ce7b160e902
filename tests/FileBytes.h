#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

/// The contents of a file; empty if it does not exist.
inline std::string FileBytes(const std::filesystem::path& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}
