// From twips to the pixels of a screen, alike on every display.
#pragma once

#include <algorithm>

#include "services/Controls.h"

namespace corvane {

inline constexpr int UsualDpi = 96;  // at which 15 twips are one pixel

/// To the nearest pixel.
[[nodiscard]] constexpr int ToPixels(int twips, int dpi = UsualDpi) {
  constexpr int TwipsPerInch = 1440;
  return (twips * dpi + TwipsPerInch / 2) / TwipsPerInch;
}

/// Where a window goes that would stand partly beside its screen: onto it, and with its upper left
/// corner in sight if it is larger.
[[nodiscard]] constexpr Place MoveOnto(const Place& screen, Place window) {
  window.Left = std::min(window.Left, screen.Left + screen.Width - window.Width);
  window.Top = std::min(window.Top, screen.Top + screen.Height - window.Height);
  window.Left = std::max(window.Left, screen.Left);
  window.Top = std::max(window.Top, screen.Top);
  return window;
}

}  // namespace corvane
