// Converts twips to screen pixels, identically on every display.
#pragma once

#include <algorithm>

#include "services/Controls.h"

namespace corvane {

inline constexpr int DefaultDpi = 96;  // 15 twips per pixel

/// Rounds to the nearest pixel.
[[nodiscard]] constexpr int ToPixels(int twips, int dpi = DefaultDpi) {
  constexpr int TwipsPerInch = 1440;
  return (twips * dpi + TwipsPerInch / 2) / TwipsPerInch;
}

/// Moves a window that is partly off the screen onto it. A window larger than the screen keeps its
/// upper left corner visible.
[[nodiscard]] constexpr Place MoveOnto(const Place& screen, Place window) {
  window.Left = std::min(window.Left, screen.Left + screen.Width - window.Width);
  window.Top = std::min(window.Top, screen.Top + screen.Height - window.Height);
  window.Left = std::max(window.Left, screen.Left);
  window.Top = std::max(window.Top, screen.Top);
  return window;
}

}  // namespace corvane
