// Paths as they stand on the command line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

/// The name behind the last separator.
[[nodiscard]] std::string_view FileTitle(std::string_view path);

/// What stands in front of the title, spelled so that a separator may follow: never empty, which
/// would mean the root.
[[nodiscard]] std::string FolderOf(std::string_view path);

/// In bytes; 0 if it cannot be told.
[[nodiscard]] std::uint64_t FileLength(const std::string& path);

}  // namespace corvane
