// Paths on the command line.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace corvane {

/// Converts a UTF-8 path for the standard library, on every system.
[[nodiscard]] std::filesystem::path ToSystemPath(const std::string& path);

/// The name after the last separator.
[[nodiscard]] std::string_view FileTitle(std::string_view path);

/// The part before the title. Never empty: an empty one with a separator appended would be the
/// root.
[[nodiscard]] std::string FolderOf(std::string_view path);

/// The path in the letter case of an existing file; unchanged if there is none.
[[nodiscard]] std::string InCaseOfFile(const std::string& path);

/// In bytes; 0 if unknown.
[[nodiscard]] std::uint64_t FileLength(const std::string& path);

}  // namespace corvane
