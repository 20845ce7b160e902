// Texts in the system's registry or, where there is none, in that of the user's Wine prefix.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace corvane {

/// The folder in the value `name` of `key` under HKEY_LOCAL_MACHINE, as a path of this system: the
/// text of the value up to its first NUL, which may be empty. Searches the view of 32-bit programs
/// first. Empty if the key cannot be opened, or the value cannot be read or is longer than `limit`
/// bytes including the closing NUL.
[[nodiscard]] std::optional<std::string> ReadRegistryFolder(const std::string& key,
                                                            const std::string& name,
                                                            std::size_t limit);

}  // namespace corvane
