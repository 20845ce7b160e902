#include "FieldEntry.h"

#include <algorithm>
#include <limits>
#include <optional>

#include "StrategicTables.h"

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

}  // namespace

// clang-format off
constinit const NumericField MapLeft    {LargestNumber, true, [](int m, std::int32_t n) { StrMap[m].Left = n; }};
constinit const NumericField MapTop     {LargestNumber, true, [](int m, std::int32_t n) { StrMap[m].Top = n; }};
constinit const NumericField MapWidth   {LargestNumber, true, [](int m, std::int32_t n) { StrMap[m].Width = n; }};
constinit const NumericField MapHeight  {LargestNumber, true, [](int m, std::int32_t n) { StrMap[m].Height = n; }};
constinit const NumericField MapCenterX {LargestNumber, true, [](int m, std::int32_t n) { MapHotspots[m].CenterX = n; }};
constinit const NumericField MapCenterY {LargestNumber, true, [](int m, std::int32_t n) { MapHotspots[m].CenterY = n; }};
constinit const NumericField ArrowLeft  {LargestNumber, true, [](int a, std::int32_t n) { StrArrow[a].Left = n; }};
constinit const NumericField ArrowTop   {LargestNumber, true, [](int a, std::int32_t n) { StrArrow[a].Top = n; }};
constinit const NumericField ArrowWidth {LargestNumber, true, [](int a, std::int32_t n) { StrArrow[a].Width = n; }};
constinit const NumericField ArrowHeight{LargestNumber, true, [](int a, std::int32_t n) { StrArrow[a].Height = n; }};
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
