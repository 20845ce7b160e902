// Texts in the system's registry; where there is none, in that of the user's Wine prefix.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace corvane {

/// The folder that the value `name` of `key` holds, as a path of this system: the value's text up
/// to its first NUL, which may be empty. The key is looked up under HKEY_LOCAL_MACHINE, in the view
/// of 32-bit programs first. Nothing if the key cannot be opened, the value cannot be read, or it
/// is longer than `limit` bytes, its closing NUL included.
[[nodiscard]] std::optional<std::string> ReadRegistryFolder(const std::string& key,
                                                            const std::string& name,
                                                            std::size_t limit);

}  // namespace corvane
