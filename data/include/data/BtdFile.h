// The part of a BTD file that the program knows: a head, ten victory locations, three texts. What
// stands behind it is the game's, never read and never written.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/AnsiText.h"
#include "base/FileResult.h"
#include "data/StrategicTables.h"

namespace corvane {

constexpr std::int32_t BtdMagic = 19990326;

// The values of VictoryLocation::Kind that mean something.
constexpr std::int32_t KindUnused = 0;
constexpr std::int32_t KindExit = 50;
constexpr std::int32_t KindMinor = 100;
constexpr std::int32_t KindMajor = 200;

struct BtdHeader {
  std::int32_t Magic = 0;
  std::uint8_t MapIndex = 0;
};

/// Laid out as in the file. A text field is bytes in the ANSI code page, its text ending at the
/// first NUL.
struct VictoryLocation {
  std::uint8_t TileX = 0;
  std::uint8_t TileY = 0;
  std::array<std::uint8_t, 2> Opaque0{};
  std::int32_t Kind = 0;
  std::array<char, 20> Name{};
  std::uint8_t Opaque1 = 0;
  std::uint8_t Destination = 0;
  std::array<std::uint8_t, 2> Opaque2{};
  bool operator==(const VictoryLocation&) const = default;
};
using VictoryLocations = std::array<VictoryLocation, VLSlotCount>;

struct BtdText {
  std::array<char, 9> BaseName{};
  std::array<char, 4096> AlliedBrief{};
  std::array<char, 4096> AxisBrief{};
  bool operator==(const BtdText&) const = default;
};

constexpr std::size_t BtdHeaderSize = 5;
constexpr std::size_t BtdHeadSize = BtdHeaderSize + sizeof(VictoryLocations);
constexpr std::size_t BtdSize = BtdHeadSize + sizeof(BtdText);
static_assert(sizeof(VictoryLocation) == 32 && offsetof(VictoryLocation, Kind) == 4 &&
              offsetof(VictoryLocation, Name) == 8 && offsetof(VictoryLocation, Destination) == 29);
static_assert(BtdHeadSize == 325 && BtdSize == 8526);

/// Reads the first 325 or 8526 bytes; what a short file does not reach is zero. A failure changes
/// neither record.
FileResult ReadBtdHead(const std::string& path, BtdHeader& header, VictoryLocations& vls);
FileResult ReadBtd(const std::string& path, BtdHeader& header, VictoryLocations& vls,
                   BtdText& text);

/// Writes the first 8526 bytes in place, making the file if there is none. After a failure the
/// file is as it was, or the result says that it is not.
FileResult WriteBtd(const std::string& path, std::uint8_t mapIndex, const VictoryLocations& vls,
                    const BtdText& text);

/// True if an ordinary file, neither hidden nor system, stands at `path`.
[[nodiscard]] bool BtdExists(const std::string& path);

/// What stands before the first NUL.
[[nodiscard]] std::string_view TrimAtNul(std::string_view text);

/// `text` filled up with NUL to `width` bytes; what is longer is cut.
[[nodiscard]] std::string PadText(std::string_view text, std::size_t width);

/// The field's text up to its first NUL, in UTF-8.
template <std::size_t Width>
[[nodiscard]] std::string FieldText(const std::array<char, Width>& field) {
  return AnsiToText(TrimAtNul({field.data(), Width}));
}

/// Replaces the whole field by `text` (UTF-8) and NULs.
template <std::size_t Width>
void SetField(std::array<char, Width>& field, std::string_view text) {
  PadText(TextToAnsi(text), Width).copy(field.data(), Width);
}

}  // namespace corvane
