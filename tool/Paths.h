// Paths on the command line.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace corvane {

/// A path in UTF-8, as the standard library takes it on every system.
[[nodiscard]] std::filesystem::path ToSystemPath(const std::string& path);

/// The name after the last separator.
[[nodiscard]] std::string_view FileTitle(std::string_view path);

/// The part before the title. Never empty: with a separator appended, that would be the root.
[[nodiscard]] std::string FolderOf(std::string_view path);

/// In bytes; 0 if unknown.
[[nodiscard]] std::uint64_t FileLength(const std::string& path);

}  // namespace corvane
