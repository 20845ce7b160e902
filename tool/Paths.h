// Paths on the command line.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

/// The name after the last separator.
[[nodiscard]] std::string_view FileTitle(std::string_view path);

/// The part before the title, to which a separator can be appended: never empty, since the result
/// would then be the root.
[[nodiscard]] std::string FolderOf(std::string_view path);

/// In bytes; 0 if unknown.
[[nodiscard]] std::uint64_t FileLength(const std::string& path);

}  // namespace corvane
