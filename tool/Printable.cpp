#include "tool/Printable.h"

#include <algorithm>
#include <array>

namespace corvane {
namespace {

struct Encoding {  // of a character in UTF-8
  std::size_t Length;
  std::uint32_t First;  // bits from the first byte
  std::uint32_t Min;    // smaller codes have a shorter encoding
};

Encoding EncodingOf(std::uint8_t first) {
  if (first < 0x80) return {1, first, 0};
  if (first >= 0xC2 && first < 0xE0) return {2, first & 0x1FU, 0x80};
  if (first >= 0xE0 && first < 0xF0) return {3, first & 0xFU, 0x800};
  if (first >= 0xF0 && first < 0xF5) return {4, first & 7U, 0x10000};
  return {0, 0, 0};
}

bool IsCharacter(std::uint32_t code, std::uint32_t min) {
  return code >= min && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

struct Codes {
  std::uint32_t First, Last;
};
constexpr std::array Unprintable{
    Codes{0, 0x1F},        Codes{0x7F, 0x9F},     Codes{0xAD, 0xAD},     Codes{0x61C, 0x61C},
    Codes{0x180E, 0x180E}, Codes{0x200B, 0x200F}, Codes{0x2028, 0x202E}, Codes{0x2060, 0x206F},
    Codes{0xFEFF, 0xFEFF}, Codes{0xFFF9, 0xFFFB}, Codes{0xFFFE, 0xFFFF}, Codes{0xE0000, 0xE007F}};

void AppendEscape(std::string& text, const Character& character) {
  if (character.Code == '\r' || character.Code == '\n') {
    text += character.Code == '\r' ? "\\r" : "\\n";
  } else if (!character.Valid || character.Code < 0x80) {
    AppendHex(text += "\\x", character.Code, 2);
  } else if (character.Code < 0x10000) {
    AppendHex(text += "\\u", character.Code, 4);
  } else {
    AppendHex(text += "\\U", character.Code, 8);
  }
}

}  // namespace

Character NextCharacter(std::string_view& text) {
  const auto first = static_cast<std::uint8_t>(text[0]);
  auto [length, code, min] = EncodingOf(first);
  bool valid = length > 0 && length <= text.size();
  for (std::size_t at = 1; valid && at < length; ++at) {
    const auto byte = static_cast<std::uint8_t>(text[at]);
    valid = (byte & 0xC0) == 0x80;
    code = code << 6 | (byte & 0x3F);
  }
  valid = valid && IsCharacter(code, min);
  Character taken{valid ? code : first, text.substr(0, valid ? length : 1), valid};
  text.remove_prefix(taken.Bytes.size());
  return taken;
}

bool IsUnprintable(std::uint32_t code) {
  return std::ranges::any_of(
      Unprintable, [&](const Codes& codes) { return code >= codes.First && code <= codes.Last; });
}

void AppendHex(std::string& text, std::uint32_t number, int digits) {
  for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
    text += "0123456789ABCDEF"[number >> shift & 0xF];
}

std::string Printable(std::string_view text) {
  std::string printable;
  while (!text.empty()) {
    const Character character = NextCharacter(text);
    if (character.Valid && !IsUnprintable(character.Code)) {
      printable += character.Bytes;
    } else {
      AppendEscape(printable, character);
    }
  }
  return printable;
}

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  while (!text.empty()) {
    const std::size_t plain = std::min(text.find_first_of("\"\\"), text.size());
    quoted += Printable(text.substr(0, plain));
    text.remove_prefix(plain);
    if (text.empty()) break;
    (quoted += '\\') += text[0];
    text.remove_prefix(1);
  }
  return quoted + '"';
}

}  // namespace corvane
