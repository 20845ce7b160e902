#include "Labels.h"

#include <algorithm>

#include "tool/Printable.h"

namespace corvane {
namespace {

// In hundredths of the font size.
int CharacterWidth(char32_t character) {
  constexpr std::u32string_view Narrow = U" !'(),./:;I[]fijlrt|\\-";
  constexpr std::u32string_view Wide = U"%@MWmw";
  if (Narrow.find(character) != Narrow.npos) return 40;
  if (Wide.find(character) != Wide.npos) return 95;
  if (character >= 0x1100) return 105;
  return character >= 'A' && character <= 'Z' ? 70 : 62;
}

int Hundredths(std::string_view text) {
  int width = 0;
  while (!text.empty()) width += CharacterWidth(NextCharacter(text).Code);
  return width;
}

// The number of bytes of `text` that fit this width.
std::size_t BytesWithin(std::string_view text, int hundredths) {
  std::string_view rest = text;
  while (!rest.empty()) {
    std::string_view next = rest;
    hundredths -= CharacterWidth(NextCharacter(next).Code);
    if (hundredths < 0) break;
    rest = next;
  }
  return text.size() - rest.size();
}

constexpr int LineHeight(int size) { return size + 1; }

}  // namespace

Box LabelSheet::CellsOf(const Box& box) {
  const auto cell = [](int place, int count) {
    return std::clamp((place + SheetMargin) / CellSize, 0, count - 1);
  };
  return {cell(box.Left, Across), cell(box.Top, Down), cell(box.Right, Across),
          cell(box.Bottom, Down)};
}

void LabelSheet::Reserve(const Box& box) {
  const Box cells = CellsOf(box);
  for (int y = cells.Top; y <= cells.Bottom; ++y) {
    for (int x = cells.Left; x <= cells.Right; ++x) {
      Taken[IndexOf(x, y)].push_back(box);
    }
  }
}

bool LabelSheet::IsFree(const Box& box) const {
  if (box.Left < -SheetMargin || box.Top < -SheetMargin || box.Right > ScreenWidth + SheetMargin ||
      box.Bottom > ScreenHeight + SheetMargin) {
    return false;
  }
  const auto meets = [&box](const Box& taken) { return Overlap(box, taken); };
  const Box cells = CellsOf(box);
  for (int y = cells.Top; y <= cells.Bottom; ++y) {
    for (int x = cells.Left; x <= cells.Right; ++x) {
      if (std::ranges::any_of(Taken[IndexOf(x, y)], meets)) return false;
    }
  }
  return true;
}

std::optional<PlacedLabel> LabelSheet::Place(std::string_view text, int size,
                                             std::span<const Point> corners) {
  const int width = TextWidth(text, size);
  for (const Point& corner : corners) {
    const Box box{corner.X, corner.Y, corner.X + width, corner.Y + LineHeight(size)};
    if (!IsFree(box)) continue;
    Reserve(box);
    return PlacedLabel{std::string(text), {corner.X, corner.Y + size - 1}};
  }
  return std::nullopt;
}

int TextWidth(std::string_view text, int size) { return (Hundredths(text) * size + 99) / 100; }

std::string Shortened(const std::string& text, int size, int width) {
  const int hundredths = width * 100 / size;
  if (Hundredths(text) <= hundredths) return text;
  constexpr char32_t Ellipsis = U'\u2026';
  const std::string start =
      text.substr(0, BytesWithin(text, hundredths - CharacterWidth(Ellipsis)));
  return start.size() < 2 ? std::string() : start + "\u2026";
}

std::vector<std::string> Wrapped(std::string_view text, int size, int width) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    std::size_t bytes = std::max<std::size_t>(BytesWithin(text, width * 100 / size), 1);
    const std::size_t space = text.substr(0, bytes).rfind(' ');
    if (bytes < text.size() && space != text.npos && space > 0) bytes = space;
    lines.emplace_back(text.substr(0, bytes));
    text.remove_prefix(bytes);
    if (text.starts_with(' ')) text.remove_prefix(1);
  }
  return lines;
}

}  // namespace corvane
