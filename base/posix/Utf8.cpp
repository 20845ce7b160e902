// The four forms of a UTF-8 character, for reading and for writing.
#include "posix/Utf8.h"

#include <algorithm>
#include <iterator>

namespace corvane {
namespace {

struct Utf8Form {
  unsigned Mask;  // bits of the first byte that tell the form
  unsigned Mark;  // and what stands in them
  std::size_t Size;
  char32_t Least;  // what is below has a shorter form
};

constexpr Utf8Form Forms[] = {
    {0x80, 0x00, 1, 0}, {0xE0, 0xC0, 2, 0x80}, {0xF0, 0xE0, 3, 0x800}, {0xF8, 0xF0, 4, 0x10000}};

constexpr unsigned TrailMask = 0xC0;
constexpr unsigned TrailMark = 0x80;
constexpr unsigned TrailBits = 6;
constexpr char32_t MaxCharacter = 0x10FFFF;

unsigned Bits(char byte) { return static_cast<unsigned char>(byte); }

bool IsAllowed(char32_t character, const Utf8Form& form) {
  const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
  return character >= form.Least && character <= MaxCharacter && !surrogate;
}

char32_t Gather(std::string_view text, const Utf8Form& form) {
  if (text.size() < form.Size) return NotUtf8;
  char32_t character = Bits(text.front()) & ~form.Mask;
  for (const char trail : text.substr(1, form.Size - 1)) {
    if ((Bits(trail) & TrailMask) != TrailMark) return NotUtf8;
    character = character << TrailBits | (Bits(trail) & ~TrailMask);
  }
  return IsAllowed(character, form) ? character : NotUtf8;
}

}  // namespace

char32_t TakeCharacter(std::string_view& text) {
  const auto* form = std::ranges::find_if(
      Forms, [&](const Utf8Form& each) { return (Bits(text.front()) & each.Mask) == each.Mark; });
  const char32_t character = form == std::end(Forms) ? NotUtf8 : Gather(text, *form);
  text.remove_prefix(character == NotUtf8 ? 1 : form->Size);
  return character;
}

void AppendUtf8(char32_t character, std::string& text) {
  const auto* form = std::end(Forms) - 1;
  while (character < form->Least) --form;
  auto shift = static_cast<unsigned>(form->Size - 1) * TrailBits;
  text += static_cast<char>(form->Mark | character >> shift);
  while (shift != 0) {
    shift -= TrailBits;
    text += static_cast<char>(TrailMark | (character >> shift & ~TrailMask));
  }
}

}  // namespace corvane
