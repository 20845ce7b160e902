// Letter case of names, which is the same on every system.
#include "platform/FolderScan.h"

#include <algorithm>

namespace corvane {
namespace {

constexpr char Capital(char character) {
  return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A')
                                              : character;
}

}  // namespace

std::string InCapitals(std::string_view text) {
  std::string capitals(text);
  std::ranges::transform(capitals, capitals.begin(), Capital);
  return capitals;
}

bool OrderedBefore(std::string_view left, std::string_view right) {
  // Texts compare by unsigned bytes, which a comparison of char would not.
  return InCapitals(left) < InCapitals(right);
}

}  // namespace corvane
