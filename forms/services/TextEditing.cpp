#include "services/TextEditing.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/AnsiText.h"

namespace corvane {
namespace {

using Pieces = std::vector<std::string_view>;

std::size_t CharacterSize(std::string_view text) {
  const auto isTail = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
  std::size_t size = 1;
  while (size < text.size() && isTail(text[size])) ++size;
  return size;
}

// Splits a text into the parts that are shown as one character each.
Pieces ShownPieces(std::string_view text, bool multiLine) {
  Pieces pieces;
  while (!text.empty()) {
    const bool pair = multiLine && text.starts_with("\r\n");
    pieces.push_back(text.substr(0, pair ? 2 : CharacterSize(text)));
    text.remove_prefix(pieces.back().size());
  }
  return pieces;
}

bool IsLineBreak(std::string_view piece) {
  return piece == "\n" || piece == "\r" || piece == "\r\n";
}

std::size_t CommonPrefix(const Pieces& left, const Pieces& right, std::size_t max) {
  std::size_t length = 0;
  while (length < max && left[length] == right[length]) ++length;
  return length;
}

std::size_t CommonSuffix(const Pieces& left, const Pieces& right, std::size_t max) {
  std::size_t length = 0;
  while (length < max && left[left.size() - 1 - length] == right[right.size() - 1 - length]) {
    ++length;
  }
  return length;
}

std::string Shown(std::string_view text, bool multiLine, std::string_view lineBreak, int max) {
  std::string shown;
  for (const std::string_view piece : ShownPieces(text, multiLine)) {
    if (max-- <= 0) break;
    shown += multiLine && IsLineBreak(piece) ? lineBreak : piece;
  }
  return shown;
}

// The pieces of a typed or pasted text, which a NUL ends. A single-line box drops the break that
// ends a single line.
Pieces InsertedPieces(std::string_view text, bool multiLine) {
  Pieces pieces = ShownPieces(text.substr(0, text.find('\0')), true);
  if (!multiLine && std::ranges::count_if(pieces, IsLineBreak) == 1 && IsLineBreak(pieces.back())) {
    pieces.pop_back();
  }
  return pieces;
}

}  // namespace

int CharacterCount(std::string_view text) {
  return static_cast<int>(ShownPieces(text, false).size());
}

std::string ShownText(const TextBox& box, std::string_view lineBreak, int max) {
  return Shown(box.Text(), box.MultiLine, lineBreak, max);
}

std::string WithLineBreaks(std::string_view text, std::string_view lineBreak) {
  return Shown(text, true, lineBreak, INT_MAX);
}

bool TakeSelection(TextBox& box, bool filled) {
  return std::exchange(box.SelectionSet, false) || filled;
}

TextEdit FindEdit(std::string_view before, std::string_view after, int caret) {
  const Pieces old = ShownPieces(before, false);
  const Pieces now = ShownPieces(after, false);
  const std::size_t shorter = std::min(old.size(), now.size());
  // The text after the caret is unchanged unless the edit was made elsewhere.
  const std::size_t at = std::min(static_cast<std::size_t>(std::max(caret, 0)), now.size());
  const std::size_t tail = std::min(now.size() - at, shorter);
  std::size_t suffix = CommonSuffix(old, now, tail) == tail ? tail : 0;
  const std::size_t prefix = CommonPrefix(old, now, shorter - suffix);
  suffix = std::max(suffix, CommonSuffix(old, now, shorter - prefix));
  TextEdit edit{static_cast<int>(prefix), static_cast<int>(old.size() - prefix - suffix), {}};
  for (std::size_t piece = prefix; piece < now.size() - suffix; ++piece)
    edit.Inserted += now[piece];
  return edit;
}

TextEdit FindEdit(const TextBox& box, std::string_view held, std::string_view beforeCaret) {
  const auto shown = [&](std::string_view text) {
    return Shown(text, box.MultiLine, "\n", INT_MAX);
  };
  return FindEdit(ShownText(box), shown(held), CharacterCount(shown(beforeCaret)));
}

std::string EditedText(const TextBox& box, const TextEdit& edit) {
  const Pieces pieces = ShownPieces(box.Text(), box.MultiLine);
  const auto clamp = [&](int at) { return std::clamp(at, 0, static_cast<int>(pieces.size())); };
  const auto start = pieces.begin() + clamp(edit.Start);
  const auto end = pieces.begin() + std::max(clamp(edit.Start), clamp(edit.Start + edit.Removed));
  std::string before, inserted, after;
  std::for_each(pieces.begin(), start, [&](std::string_view piece) { before += piece; });
  std::for_each(end, pieces.end(), [&](std::string_view piece) { after += piece; });

  auto moved = start;  // a line break that only moved keeps its bytes
  const auto lineBreak = [&] {
    moved = std::find_if(moved, end, IsLineBreak);
    return moved == end ? std::string("\r\n") : std::string(*moved++);
  };
  int room = box.TypedLimit - CharacterCount(before) - CharacterCount(after);
  for (const std::string_view piece : InsertedPieces(edit.Inserted, box.MultiLine)) {
    const bool breaks = box.MultiLine && IsLineBreak(piece);
    const std::string accepted = breaks ? lineBreak() : AnsiToText(TextToAnsi(piece));
    room -= CharacterCount(accepted);
    if (box.TypedLimit > 0 && room < 0) break;
    inserted += accepted;
  }
  return before + inserted + after;
}

}  // namespace corvane
