// UTF-8, one character at a time, and its letter case.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

inline constexpr char32_t NotUtf8 = 0xFFFFFFFF;

/// Takes the first character off `text`, which is not empty. Bytes that are no UTF-8, overlong
/// forms and surrogates among them, come off one by one as NotUtf8.
[[nodiscard]] char32_t TakeCharacter(std::string_view& text);

/// `character` is at most 0x10FFFF and no surrogate.
void AppendUtf8(char32_t character, std::string& text);

/// True if the texts differ in letter case at most, character by character, as file names do on
/// Windows. Bytes that are no UTF-8 match themselves only.
[[nodiscard]] bool EqualIgnoringCase(std::string_view left, std::string_view right);

}  // namespace corvane
