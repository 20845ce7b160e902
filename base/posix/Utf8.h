// UTF-8, one character at a time, and its letter case.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

inline constexpr char32_t NotUtf8 = 0xFFFFFFFF;

/// Removes and returns the first character of `text`, which must not be empty. Bytes that are not
/// UTF-8, including overlong forms and surrogates, are removed one at a time as NotUtf8.
[[nodiscard]] char32_t TakeCharacter(std::string_view& text);

/// `character` must be at most 0x10FFFF and not a surrogate.
void AppendUtf8(char32_t character, std::string& text);

/// Compares character by character, ignoring case, as Windows compares file names. A byte that is
/// not UTF-8 matches only itself.
[[nodiscard]] bool EqualIgnoringCase(std::string_view left, std::string_view right);

}  // namespace corvane
