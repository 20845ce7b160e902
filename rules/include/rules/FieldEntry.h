// What a numeric field accepts, and where its number goes.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace corvane {

/// The system's beep; filled in by whatever shows the program.
inline std::function<void()> Beep = [] {};

/// A numeric field: the largest number it accepts, whether entering one marks the tables as
/// changed, and where the number is stored for the index of the selected row.
struct NumericField {
  std::int32_t Max;
  bool SetsTablesDirty;
  void (*Store)(int index, std::int32_t number);
};

// The fields of the tables: the tile and hotspot of a map slot, the rectangle of an arrow slot.
extern const NumericField MapLeft, MapTop, MapWidth, MapHeight, MapCenterX, MapCenterY;
extern const NumericField ArrowLeft, ArrowTop, ArrowWidth, ArrowHeight;

/// True for a text of digits only, the empty one included; otherwise beeps once.
[[nodiscard]] bool IsAllDigits(std::string_view text);

/// Stores the number that `text` stands for, 0 for the empty text; False, with a beep and nothing
/// stored, if it is no number or too large. With no selected row (-1) an accepted text goes
/// nowhere.
[[nodiscard]] bool EnterField(const NumericField& field, int index, std::string_view text);

}  // namespace corvane
