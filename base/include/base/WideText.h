// The UTF-8 of the program against the UTF-16 of the system's calls.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// UTF-16 for UTF-8; every byte that is no UTF-8 becomes U+FFFD.
[[nodiscard]] std::wstring TextToWide(std::string_view text);

/// UTF-8 for UTF-16; half of a surrogate pair becomes U+FFFD.
[[nodiscard]] std::string WideToText(std::wstring_view wide);

/// UTF-16 for bytes in a code page, which the system knows by its number.
[[nodiscard]] std::wstring BytesToWide(unsigned codePage, std::string_view bytes);

}  // namespace corvane
