// Where labels go so that each can be read: a label takes the first of its places that nothing else
// has taken. One that finds none is left out, since what it says also stands in a tooltip.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Scene.h"

namespace corvane {

struct Label {
  std::string Text;
  Point Start;  // of its base line
};

class LabelSheet {
 public:
  /// Keeps labels away from `box`.
  void Take(const Box& box);
  [[nodiscard]] bool IsFree(const Box& box) const;
  /// Puts `text` at the first of `corners` (left top of the text) where it fits; gives back False
  /// if there is none.
  [[nodiscard]] bool Put(std::string_view text, int size, std::span<const Point> corners,
                         Label& label);

 private:
  static constexpr int CellSize = 32;  // pixels
  static constexpr int Across = (ScreenWidth + 2 * SheetMargin) / CellSize + 1;
  static constexpr int Down = (ScreenHeight + 2 * SheetMargin) / CellSize + 1;
  [[nodiscard]] static Box CellsOf(const Box& box);

  // The boxes in each cell of a grid, so that thousands of labels find their places at once.
  std::array<std::vector<Box>, std::size_t{Across} * Down> Taken;
};

/// About how many pixels wide `text` (UTF-8) is in a sans-serif font of this size; rather too many.
[[nodiscard]] int TextWidth(std::string_view text, int size);

/// The start of `text` that is at most `width` wide, with an ellipsis if that is not all; empty if
/// not even two letters fit.
[[nodiscard]] std::string Shortened(const std::string& text, int size, int width);

/// Lines of at most `width`, broken at blanks where that is possible.
[[nodiscard]] std::vector<std::string> Wrapped(std::string_view text, int size, int width);

}  // namespace corvane
