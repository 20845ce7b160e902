// The fields of the records by name, for code that iterates over them.
#pragma once

#include <array>
#include <cstdint>

#include "data/StrategicTables.h"
#include "tool/Layer.h"

namespace corvane {

template <typename Record>
struct NumberField {
  const char* Name;   // as in the documentation and in JSON
  const char* Label;  // as in the windows
  std::int32_t Record::*Number;
};

inline constexpr std::array<NumberField<StrRect>, 7> RectFields{
    {{"Word0", "Word0", &StrRect::Word0},
     {"Word1", "Word1", &StrRect::Word1},
     {"Word2", "Word2", &StrRect::Word2},
     {"Left", "Left", &StrRect::Left},
     {"Top", "Top", &StrRect::Top},
     {"Width", "Width", &StrRect::Width},
     {"Height", "Height", &StrRect::Height}}};
// Without the words whose meaning is unknown.
inline constexpr std::array PlaceFields{RectFields[3], RectFields[4], RectFields[5], RectFields[6]};
inline constexpr std::array<NumberField<Hotspot>, 2> HotspotFields{
    {{"CenterX", "Center X", &Hotspot::CenterX}, {"CenterY", "Center Y", &Hotspot::CenterY}}};

struct ByteField {
  const char* Name;
  const char* Label;
  std::uint8_t VictoryLocation::*Byte;
};
inline constexpr ByteField TileXField{"TileX", "X", &VictoryLocation::TileX};
inline constexpr ByteField TileYField{"TileY", "Y", &VictoryLocation::TileY};
inline constexpr ByteField Opaque1Field{"Opaque1", "Opaque1", &VictoryLocation::Opaque1};
inline constexpr ByteField DestinationField{"Destination", "Destination",
                                            &VictoryLocation::Destination};
inline constexpr std::array VLByteFields{TileXField, TileYField, Opaque1Field, DestinationField};

struct BytePairField {
  const char* Name;
  std::array<std::uint8_t, 2> VictoryLocation::*Bytes;
};
inline constexpr std::array<BytePairField, 2> VLPairFields{
    {{"Opaque0", &VictoryLocation::Opaque0}, {"Opaque2", &VictoryLocation::Opaque2}}};

struct BriefField {
  const char* Name;
  const char* Label;
  std::string MapText::*Text;
};
inline constexpr std::array<BriefField, 2> BriefFields{
    {{"AlliedBrief", "Allied briefing", &MapText::AlliedBrief},
     {"AxisBrief", "Axis briefing", &MapText::AxisBrief}}};

}  // namespace corvane
