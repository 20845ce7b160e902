// Converts between the system's ANSI code page, which BTD files use, and UTF-8, which the program
// uses. Windows-1252 takes the place of a code page with several bytes per character.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// Converts bytes in the code page to UTF-8. Each of the 256 byte values has a character.
[[nodiscard]] std::string AnsiToText(std::string_view bytes);

/// Converts UTF-8 to bytes in the code page. A character that the code page lacks, or a byte that
/// is not UTF-8, becomes '?'. Reverses AnsiToText for every byte that the code page defines.
[[nodiscard]] std::string TextToAnsi(std::string_view text);

}  // namespace corvane
