#include "posix/Utf8.h"

#include <utf8proc.h>

namespace corvane {
namespace {

// Removes the first character and returns the value to compare: its capital or, for a byte that is
// not UTF-8, a number above all characters.
char32_t TakeUpper(std::string_view& text) {
  constexpr char32_t AboveCharacters = 0x110000;
  const auto byte = static_cast<unsigned char>(text.front());
  const char32_t character = TakeCharacter(text);
  if (character == NotUtf8) return AboveCharacters + byte;
  return static_cast<char32_t>(::utf8proc_toupper(static_cast<utf8proc_int32_t>(character)));
}

}  // namespace

char32_t TakeCharacter(std::string_view& text) {
  utf8proc_int32_t character = 0;
  const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  const auto size =
      ::utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &character);
  text.remove_prefix(size > 0 ? static_cast<std::size_t>(size) : 1);
  return size > 0 ? static_cast<char32_t>(character) : NotUtf8;
}

void AppendUtf8(char32_t character, std::string& text) {
  utf8proc_uint8_t bytes[4];
  const auto size = ::utf8proc_encode_char(static_cast<utf8proc_int32_t>(character), bytes);
  text.append(bytes, bytes + size);
}

bool EqualIgnoringCase(std::string_view left, std::string_view right) {
  while (!left.empty() && !right.empty()) {
    if (TakeUpper(left) != TakeUpper(right)) return false;
  }
  return left.empty() && right.empty();
}

}  // namespace corvane
