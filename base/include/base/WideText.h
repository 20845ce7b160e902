// Converts between UTF-8, which the program uses, and UTF-16, which the system's calls use.
// Windows only.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// Converts UTF-8 to UTF-16. Each byte that is not UTF-8 becomes U+FFFD.
[[nodiscard]] std::wstring TextToWide(std::string_view text);

/// Converts UTF-16 to UTF-8. Half of a surrogate pair becomes U+FFFD.
[[nodiscard]] std::string WideToText(std::wstring_view wide);

/// Converts bytes in the code page of this number to UTF-16.
[[nodiscard]] std::wstring BytesToWide(unsigned codePage, std::string_view bytes);

}  // namespace corvane
