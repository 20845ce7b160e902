// Converts between the system's 8-bit ANSI code page, which BTD files use, and UTF-8, which the
// program uses.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// Converts bytes in the code page to UTF-8. Each of the 256 byte values has a character.
[[nodiscard]] std::string AnsiToText(std::string_view bytes);

/// Converts UTF-8 to bytes in the code page. A character that the code page lacks, or a byte that
/// is not UTF-8, becomes '?'. Exactly reverses AnsiToText.
[[nodiscard]] std::string TextToAnsi(std::string_view text);

}  // namespace corvane
