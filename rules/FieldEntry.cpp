#include "rules/FieldEntry.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "data/StrategicTables.h"

namespace corvane {
namespace {

constexpr std::int32_t MaxNumber = std::numeric_limits<std::int32_t>::max();

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Empty if the number exceeds `max`.
std::optional<std::int32_t> NumberOf(std::string_view digits, std::int32_t max) {
  std::int64_t number = 0;
  for (const char digit : digits) {
    number = number * 10 + (digit - '0');
    if (number > max) return std::nullopt;
  }
  return static_cast<std::int32_t>(number);
}

template <auto Table, auto Field>
void StoreIn(int slot, std::int32_t number) {
  (Tables.*Table)[slot].*Field = number;
}

}  // namespace

// clang-format off
constinit const NumericField MapLeft    {MaxNumber, true, StoreIn<&GameTables::Tiles, &StrRect::Left>};
constinit const NumericField MapTop     {MaxNumber, true, StoreIn<&GameTables::Tiles, &StrRect::Top>};
constinit const NumericField MapWidth   {MaxNumber, true, StoreIn<&GameTables::Tiles, &StrRect::Width>};
constinit const NumericField MapHeight  {MaxNumber, true, StoreIn<&GameTables::Tiles, &StrRect::Height>};
constinit const NumericField MapCenterX {MaxNumber, true, StoreIn<&GameTables::Hotspots, &Hotspot::CenterX>};
constinit const NumericField MapCenterY {MaxNumber, true, StoreIn<&GameTables::Hotspots, &Hotspot::CenterY>};
constinit const NumericField ArrowLeft  {MaxNumber, true, StoreIn<&GameTables::Arrows, &StrRect::Left>};
constinit const NumericField ArrowTop   {MaxNumber, true, StoreIn<&GameTables::Arrows, &StrRect::Top>};
constinit const NumericField ArrowWidth {MaxNumber, true, StoreIn<&GameTables::Arrows, &StrRect::Width>};
constinit const NumericField ArrowHeight{MaxNumber, true, StoreIn<&GameTables::Arrows, &StrRect::Height>};
// clang-format on

bool IsAllDigits(std::string_view text) {
  if (std::ranges::all_of(text, IsDigit)) return true;
  Beep();
  return false;
}

bool EnterField(const NumericField& field, int index, std::string_view text) {
  if (!IsAllDigits(text)) return false;
  const std::optional<std::int32_t> number = NumberOf(text, field.Max);
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
