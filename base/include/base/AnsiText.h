// Text in the system's 8-bit ANSI code page, as BTD files hold it, against the UTF-8 of the
// program.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// UTF-8 for bytes in the code page. Every one of the 256 byte values has a character.
[[nodiscard]] std::string AnsiToText(std::string_view bytes);

/// Bytes in the code page for UTF-8; a character that the code page lacks, and every byte that is
/// no UTF-8, becomes '?'. Undoes AnsiToText exactly.
[[nodiscard]] std::string TextToAnsi(std::string_view text);

}  // namespace corvane
