// Parses Wine's registry files line by line. Each Take function removes what it recognises from the
// front of its text, and returns nothing if the text is malformed.
#include "posix/WineRegistry.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>

#include "base/AnsiText.h"
#include "base/LetterCase.h"
#include "posix/Utf8.h"

namespace corvane {
namespace {

constexpr std::uint32_t TypeText = 1;
constexpr std::uint32_t TypeExpandText = 2;
constexpr std::uint32_t TypeBinary = 3;
constexpr std::uint32_t TypeMultiText = 7;

bool Take(std::string_view& text, std::string_view expected) {
  if (!text.starts_with(expected)) return false;
  text.remove_prefix(expected.size());
  return true;
}

void SkipBlanks(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
}

std::string_view TakeLine(std::string_view& text) {
  std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  SkipBlanks(line);
  return line;
}

std::optional<std::uint32_t> TakeNumber(std::string_view& text, int base, std::size_t maxDigits) {
  const std::string_view digits = text.substr(0, maxDigits);
  std::uint32_t number = 0;
  const char* const begin = digits.data();
  const auto [end, error] = std::from_chars(begin, begin + digits.size(), number, base);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - begin));
  return number;
}

/// Appends a character as UTF-16. The character may be half of a surrogate pair.
void AppendUnits(char32_t character, std::u16string& units) {
  if (character > 0xFFFF) {
    units += static_cast<char16_t>(0xD7C0 + (character >> 10));
    character = 0xDC00 + (character & 0x3FF);
  }
  units += static_cast<char16_t>(character);
}

bool IsBetween(char16_t unit, char16_t first, char16_t last) {
  return unit >= first && unit <= last;
}

std::string TextOfUnits(std::u16string_view units) {
  std::string text;
  for (std::size_t i = 0; i < units.size(); ++i) {
    char32_t character = units[i];
    const bool lead = IsBetween(units[i], 0xD800, 0xDBFF);
    if (lead && i + 1 < units.size() && IsBetween(units[i + 1], 0xDC00, 0xDFFF))
      character = 0x10000 + ((character - 0xD800) << 10) + (units[++i] - 0xDC00U);
    else if (IsBetween(units[i], 0xD800, 0xDFFF))
      character = U'?';
    AppendUtf8(character, text);
  }
  return text;
}

char32_t TakeRawCharacter(std::string_view& text) {
  const char32_t character = TakeCharacter(text);
  return character == NotUtf8 ? U'?' : character;
}

/// The part of an escape after its backslash: digits, a letter with a special meaning, or any other
/// character, which stands for itself.
char32_t TakeEscape(std::string_view& text) {
  constexpr std::string_view Letters = "abefnrtv";
  constexpr std::string_view Meanings = "\a\b\033\f\n\r\t\v";
  if (const auto octal = TakeNumber(text, 8, 3)) return *octal;
  const char32_t character = TakeRawCharacter(text);
  if (character == U'x') return TakeNumber(text, 16, 4).value_or(U'x');
  const std::size_t place =
      character < 0x80 ? Letters.find(static_cast<char>(character)) : Letters.npos;
  return place == Letters.npos ? character : static_cast<char32_t>(Meanings[place]);
}

/// The text up to `closing`, which is removed too; nothing if it is missing.
std::optional<std::string> TakeEscaped(std::string_view& text, char closing) {
  std::u16string units;
  while (!text.empty() && text.front() != closing) {
    const bool escape = Take(text, "\\");
    if (text.empty()) break;
    AppendUnits(escape ? TakeEscape(text) : TakeRawCharacter(text), units);
  }
  if (text.empty()) return std::nullopt;
  text.remove_prefix(1);
  return TextOfUnits(units);
}

std::optional<std::string> TakeQuoted(std::string_view& line) {
  return Take(line, "\"") ? TakeEscaped(line, '"') : std::nullopt;
}

std::optional<std::string> TakeQuotedValue(std::string_view& line) {
  auto text = TakeQuoted(line);
  if (text) *text += '\0';
  return text;
}

std::optional<std::string> TakeNumberValue(std::string_view& line) {
  const auto number = TakeNumber(line, 16, 8);
  if (!number) return std::nullopt;
  std::string bytes;
  for (unsigned shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(*number >> shift);
  return AnsiToText(bytes);
}

/// A list of bytes. A backslash at the end of a line continues the list on the next line, in
/// `rest`.
std::optional<std::string> TakeBytes(std::string_view line, std::string_view& rest) {
  std::string bytes;
  while (!line.empty()) {
    if (Take(line, "\\")) {
      if (!line.empty() || rest.empty()) return std::nullopt;
      line = TakeLine(rest);
      continue;
    }
    const auto byte = TakeNumber(line, 16, 2);
    if (!byte || (!Take(line, ",") && !line.empty())) return std::nullopt;
    bytes += static_cast<char>(*byte);
    SkipBlanks(line);
  }
  return bytes;
}

std::string TextOfBytes(std::uint32_t type, const std::string& bytes) {
  if (type != TypeText && type != TypeExpandText && type != TypeMultiText) return AnsiToText(bytes);
  const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  std::u16string units;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
    units += static_cast<char16_t>(byteAt(i) | byteAt(i + 1) << 8);
  return TextOfUnits(units);
}

/// The number in "(2):"; `otherwise` if there is only a colon.
std::optional<std::uint32_t> TakeType(std::string_view& line, std::uint32_t otherwise) {
  const bool given = Take(line, "(");
  const auto type = given ? TakeNumber(line, 16, 8) : otherwise;
  return Take(line, given ? "):" : ":") ? type : std::nullopt;
}

std::optional<std::string> TakeHexValue(std::string_view line, std::string_view& rest) {
  const auto type = TakeType(line, TypeBinary);
  const auto bytes = type ? TakeBytes(line, rest) : std::nullopt;
  if (!bytes) return std::nullopt;
  return TextOfBytes(*type, *bytes);
}

std::optional<std::string> TakeValue(std::string_view line, std::string_view& rest) {
  if (Take(line, "dword:")) return TakeNumberValue(line);
  if (Take(line, "hex")) return TakeHexValue(line, rest);
  if (Take(line, "str") && !TakeType(line, TypeText)) return std::nullopt;
  return TakeQuotedValue(line);
}

/// The name before a value, removed with the "=" between them. "@" names the unnamed value.
std::optional<std::string> TakeName(std::string_view& line) {
  auto name = Take(line, "@") ? std::optional<std::string>("") : TakeQuoted(line);
  SkipBlanks(line);
  if (!Take(line, "=")) return std::nullopt;
  SkipBlanks(line);
  return name;
}

bool IsSameName(const std::optional<std::string>& name, std::string_view wanted) {
  return name && ToUpper(*name) == ToUpper(wanted);
}

}  // namespace

std::optional<std::string> FindRegistryValue(std::string_view file, std::string_view key,
                                             std::string_view name) {
  if (key.ends_with('\\')) key.remove_suffix(1);
  std::optional<std::string> found;
  bool inKey = false;
  while (!file.empty()) {
    std::string_view line = TakeLine(file);
    if (Take(line, "[")) {
      inKey = IsSameName(TakeEscaped(line, ']'), key);
    } else if (inKey && IsSameName(TakeName(line), name)) {
      if (auto value = TakeValue(line, file)) found = std::move(value);
    }
  }
  return found;
}

}  // namespace corvane
