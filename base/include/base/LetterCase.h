// Letter case of names and texts, of which only the letters a to z have one, on every system.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// Capitals for the letters a to z; every other byte stays.
[[nodiscard]] std::string InCapitals(std::string_view text);

/// Text order in which letter case (a to z) does not count.
[[nodiscard]] bool OrderedBefore(std::string_view left, std::string_view right);

}  // namespace corvane
