// Texts from files made fit for a terminal, where a control character is a command and a direction
// mark turns what follows around.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvane {

/// The first character of a UTF-8 text.
struct Character {
  std::uint32_t Code = 0;  // the byte's value if the bytes are no character
  std::string_view Bytes;
  bool Valid = false;
};

/// Takes the first character, or the first byte that is none, off `text`, which is not empty.
[[nodiscard]] Character NextCharacter(std::string_view& text);

/// True for control characters, marks of writing direction, and invisible characters.
[[nodiscard]] bool IsUnprintable(std::uint32_t code);

/// `text` with an escape, such as \x1B or \u202E, for whatever is unprintable or no UTF-8.
[[nodiscard]] std::string Printable(std::string_view text);

/// The same in double quotes, with a backslash in front of quotes and backslashes, so that
/// different texts never look alike.
[[nodiscard]] std::string Quoted(std::string_view text);

}  // namespace corvane
