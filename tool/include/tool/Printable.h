// Makes texts from files safe for a terminal, where control characters are commands and direction
// marks reverse the text after them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

/// The first character of a UTF-8 text.
struct Character {
  std::uint32_t Code = 0;  // the value of the byte if it is not valid UTF-8
  std::string_view Bytes;
  bool Valid = false;
};

/// Removes the first character, or a byte that is not UTF-8, from `text`, which must not be empty.
[[nodiscard]] Character NextCharacter(std::string_view& text);

/// True for control characters, direction marks and invisible characters.
[[nodiscard]] bool IsUnprintable(std::uint32_t code);

/// Appends a number as this many hexadecimal digits, in capitals.
void AppendHex(std::string& text, std::uint32_t number, int digits);

/// Replaces what is unprintable or not UTF-8 with an escape such as \x1B or \u202E.
[[nodiscard]] std::string Printable(std::string_view text);

/// Printable text in double quotes, with quotes and backslashes escaped, so that different texts
/// never look alike.
[[nodiscard]] std::string Quoted(std::string_view text);

}  // namespace corvane
