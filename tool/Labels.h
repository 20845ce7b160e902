// Places labels so that none overlap: a label takes the first of its places that is free. A label
// without a free place is left out; a tooltip contains its text as well.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "Scene.h"

namespace corvane {

struct PlacedLabel {
  std::string Text;
  Point Start;  // of its baseline
};

class LabelSheet {
 public:
  /// Keeps labels away from `box`.
  void Reserve(const Box& box);
  [[nodiscard]] bool IsFree(const Box& box) const;
  /// Places `text` with its upper left corner at the first of `corners` where it fits. Returns
  /// nothing if it fits nowhere.
  [[nodiscard]] std::optional<PlacedLabel> Place(std::string_view text, int size,
                                                 std::span<const Point> corners);

 private:
  static constexpr int CellSize = 32;  // pixels
  static constexpr int Across = (ScreenWidth + 2 * SheetMargin) / CellSize + 1;
  static constexpr int Down = (ScreenHeight + 2 * SheetMargin) / CellSize + 1;
  [[nodiscard]] static Box CellsOf(const Box& box);
  [[nodiscard]] static constexpr std::size_t IndexOf(int x, int y) {
    return static_cast<std::size_t>(y) * Across + static_cast<std::size_t>(x);
  }

  // The boxes in each cell of a grid, so that thousands of labels are placed quickly.
  std::array<std::vector<Box>, std::size_t{Across} * Down> Taken;
};

/// The estimated width of `text` (UTF-8) in a sans-serif font of this size, in pixels. Errs on the
/// large side.
[[nodiscard]] int TextWidth(std::string_view text, int size);

/// Truncates `text` to `width` and appends an ellipsis if it is longer; empty if fewer than two
/// bytes of it fit.
[[nodiscard]] std::string Shortened(const std::string& text, int size, int width);

/// Breaks `text` into lines of at most `width`, at spaces if possible.
[[nodiscard]] std::vector<std::string> Wrapped(std::string_view text, int size, int width);

}  // namespace corvane
