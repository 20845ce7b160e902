#include "services/Pixels.h"

#include <gtest/gtest.h>

using namespace corvane;

TEST(Pixels, AreRoundedToTheNearest) {
  const std::tuple<int, int, int> rows[] = {{15, 96, 1}, {22, 96, 1},    {23, 96, 2},
                                            {0, 96, 0},  {285, 144, 29}, {1440, 120, 120}};
  for (const auto& [twips, dpi, pixels] : rows) EXPECT_EQ(ToPixels(twips, dpi), pixels) << twips;
}

TEST(Windows, MoveOntoTheirScreen) {
  constexpr Place Screen{100, 50, 800, 600};
  const std::tuple<const char*, Place, int, int> rows[] = {
      {"inside", {150, 60, 300, 200}, 150, 60},
      {"beyond the left and upper edge", {0, -20, 300, 200}, 100, 50},
      {"beyond the right and lower edge", {700, 500, 300, 200}, 600, 450},
      {"larger than the screen", {300, 300, 900, 700}, 100, 50},
      {"as large as the screen", {101, 51, 800, 600}, 100, 50}};
  for (const auto& [name, window, left, top] : rows) {
    const Place moved = MoveOnto(Screen, window);
    EXPECT_EQ(moved.Left, left) << name;
    EXPECT_EQ(moved.Top, top) << name;
    EXPECT_EQ(moved.Width, window.Width) << name;
  }
}
