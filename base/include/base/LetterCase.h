// Letter case of the letters a to z only, independent of the locale.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// Converts the letters a to z to capitals and no other byte.
[[nodiscard]] std::string ToUpper(std::string_view text);

/// Text order, case-insensitive for the letters a to z.
[[nodiscard]] bool LessIgnoringCase(std::string_view left, std::string_view right);

}  // namespace corvane
