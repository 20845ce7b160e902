// Windows-1252, which stands in for the ANSI code page where the system has none.
#include "base/AnsiText.h"

#include <algorithm>
#include <iterator>

#include "posix/Utf8.h"

namespace corvane {
namespace {

// Bytes outside this range map to the character of the same number, as do the five bytes that the
// code page leaves undefined: 81 8D 8F 90 9D.
constexpr unsigned RangeFirst = 0x80;
constexpr char32_t Range[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98
};
constexpr unsigned RangeEnd = RangeFirst + std::size(Range);
constexpr unsigned MaxByte = 0xFF;

char32_t CharacterOf(char byte) {
  const unsigned number = static_cast<unsigned char>(byte);
  return number >= RangeFirst && number < RangeEnd ? Range[number - RangeFirst] : number;
}

char ByteOf(char32_t character) {
  if (character < RangeFirst || (character >= RangeEnd && character <= MaxByte))
    return static_cast<char>(character);
  const auto* place = std::ranges::find(Range, character);
  return place == std::end(Range) ? '?' : static_cast<char>(RangeFirst + (place - Range));
}

}  // namespace

std::string AnsiToText(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) AppendUtf8(CharacterOf(byte), text);
  return text;
}

std::string TextToAnsi(std::string_view text) {
  std::string bytes;
  while (!text.empty()) bytes += ByteOf(TakeCharacter(text));
  return bytes;
}

}  // namespace corvane
