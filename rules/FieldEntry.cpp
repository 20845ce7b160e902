#include "rules/FieldEntry.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "data/StrategicTables.h"

namespace corvane {
namespace {

constexpr std::int32_t LargestNumber = std::numeric_limits<std::int32_t>::max();

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Nothing if the number is above `largest`.
std::optional<std::int32_t> NumberOf(std::string_view digits, std::int32_t largest) {
  std::int64_t number = 0;
  for (const char digit : digits) {
    number = number * 10 + (digit - '0');
    if (number > largest) return std::nullopt;
  }
  return static_cast<std::int32_t>(number);
}

template <auto& Table, auto Field>
void StoreIn(int slot, std::int32_t number) {
  Table[slot].*Field = number;
}

}  // namespace

// clang-format off
constinit const NumericField MapLeft    {LargestNumber, true, StoreIn<StrMap, &StrRect::Left>};
constinit const NumericField MapTop     {LargestNumber, true, StoreIn<StrMap, &StrRect::Top>};
constinit const NumericField MapWidth   {LargestNumber, true, StoreIn<StrMap, &StrRect::Width>};
constinit const NumericField MapHeight  {LargestNumber, true, StoreIn<StrMap, &StrRect::Height>};
constinit const NumericField MapCenterX {LargestNumber, true, StoreIn<MapHotspots, &Hotspot::CenterX>};
constinit const NumericField MapCenterY {LargestNumber, true, StoreIn<MapHotspots, &Hotspot::CenterY>};
constinit const NumericField ArrowLeft  {LargestNumber, true, StoreIn<StrArrow, &StrRect::Left>};
constinit const NumericField ArrowTop   {LargestNumber, true, StoreIn<StrArrow, &StrRect::Top>};
constinit const NumericField ArrowWidth {LargestNumber, true, StoreIn<StrArrow, &StrRect::Width>};
constinit const NumericField ArrowHeight{LargestNumber, true, StoreIn<StrArrow, &StrRect::Height>};
// clang-format on

bool IsAllDigits(std::string_view text) {
  if (std::ranges::all_of(text, IsDigit)) return true;
  Beep();
  return false;
}

bool EnterField(const NumericField& field, int index, std::string_view text) {
  if (!IsAllDigits(text)) return false;
  const std::optional<std::int32_t> number = NumberOf(text, field.Largest);
  if (!number) {
    Beep();
    return false;
  }
  if (index < 0) return true;
  if (field.SetsTablesDirty) TablesDirty = true;
  field.Store(index, *number);
  return true;
}

}  // namespace corvane
