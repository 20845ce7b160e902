#include "base/LetterCase.h"

#include <algorithm>

namespace corvane {
namespace {

constexpr char Capital(char character) {
  return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                              : character;
}

}  // namespace

std::string ToUpper(std::string_view text) {
  std::string capitals(text);
  std::ranges::transform(capitals, capitals.begin(), Capital);
  return capitals;
}

bool LessIgnoringCase(std::string_view left, std::string_view right) {
  const auto byte = [](char character) { return static_cast<unsigned char>(Capital(character)); };
  return std::ranges::lexicographical_compare(left, right, {}, byte, byte);
}

}  // namespace corvane
