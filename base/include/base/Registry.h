// Texts in the system's registry or, where there is none, in that of the user's Wine prefix.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace corvane {

/// The folder in the value `name` of `key` under HKEY_LOCAL_MACHINE, as a path of this system; it
/// may be empty. Reads the view of 32-bit programs and, in a Wine prefix that lacks the value
/// there, the plain key. The first NUL ends the value. Returns nothing if the key cannot be opened,
/// or if the value cannot be read or exceeds `limit` bytes including the closing NUL.
[[nodiscard]] std::optional<std::string> ReadRegistryFolder(const std::string& key,
                                                            const std::string& name,
                                                            std::size_t limit);

}  // namespace corvane
