// Reads the text files in which a Wine prefix stores its registry.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// The value `name` of `key` (which may end in a separator) in the text of a registry file. The
/// result is UTF-8 and includes the NULs of the value; a quoted text gets the closing NUL that the
/// file omits. Values of other types are read as bytes in the ANSI code page. The last well-formed
/// value wins. Names are case-insensitive.
[[nodiscard]] std::optional<std::string> FindRegistryValue(std::string_view file,
                                                           std::string_view key,
                                                           std::string_view name);

}  // namespace corvane
