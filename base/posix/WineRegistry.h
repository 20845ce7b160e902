// The text form in which a Wine prefix keeps its registry, read only.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

/// The value `name` of `key` (which may end in a separator) in the registry file with the text
/// `file`, as UTF-8 with all the NULs that the value holds; the closing one of a quoted text, which
/// the file leaves out, is put in. Values of types other than text count as bytes in the ANSI code
/// page. Of several, the last well-formed one counts. Letter case does not.
[[nodiscard]] std::optional<std::string> FindRegistryValue(std::string_view file,
                                                           std::string_view key,
                                                           std::string_view name);

}  // namespace corvane
