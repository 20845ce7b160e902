// Numeric fields: which texts they accept and where they store the number.
#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

namespace corvane {

/// The system's beep, set by main.
inline std::function<void()> Beep = [] {};

/// A numeric field: the largest number that it accepts, whether an entry marks the tables as
/// changed, and a function that stores the number for the selected row.
struct NumericField {
  std::int32_t Max;
  bool SetsTablesDirty;
  void (*Store)(int index, std::int32_t number);
};

// The fields of the tables: the tile and hotspot of a map slot, the rectangle of an arrow slot.
extern const NumericField MapLeft, MapTop, MapWidth, MapHeight, MapCenterX, MapCenterY;
extern const NumericField ArrowLeft, ArrowTop, ArrowWidth, ArrowHeight;

/// True if the text is empty or consists of digits; otherwise beeps once.
[[nodiscard]] bool IsAllDigits(std::string_view text);

/// Stores the number that `text` gives, or 0 if `text` is empty. If it is not a number or too
/// large, beeps, stores nothing and returns false. With no selected row (index -1), accepts the
/// text but stores nothing.
[[nodiscard]] bool EnterField(const NumericField& field, int index, std::string_view text);

}  // namespace corvane
