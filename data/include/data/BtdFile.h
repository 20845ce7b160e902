// The part of a BTD file that the program knows: a header, ten victory locations, three texts. It
// never reads or writes the rest of the file, which belongs to the game.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/Result.h"
#include "data/StrategicTables.h"

namespace corvane {

constexpr std::int32_t BtdMagic = 19990326;

/// The kind of a victory location. A file may hold any other value, which means: used, not an exit.
enum class VLKind : std::int32_t {
  Unused = 0,
  Exit = 50,
  MinorObjective = 100,
  MajorObjective = 200
};

struct BtdHeader {
  std::int32_t Magic = 0;
  std::uint8_t MapIndex = 0;
  bool operator==(const BtdHeader&) const = default;
};

/// Laid out as in the file. A text field holds bytes in the ANSI code page; the first NUL ends its
/// text.
struct VictoryLocation {
  std::uint8_t TileX = 0;
  std::uint8_t TileY = 0;
  std::array<std::uint8_t, 2> Opaque0{};
  VLKind Kind = VLKind::Unused;
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

struct BtdHead {
  BtdHeader Header;
  VictoryLocations VLs{};
  bool operator==(const BtdHead&) const = default;
};

struct BtdFile {
  BtdHeader Header{};
  VictoryLocations VLs{};
  BtdText Text{};
  std::uint64_t Length = 0;  // of the complete file, in bytes
  bool operator==(const BtdFile&) const = default;
};

constexpr std::size_t BtdHeaderSize = 5;
constexpr std::size_t BtdHeadSize = BtdHeaderSize + sizeof(VictoryLocations);
constexpr std::size_t BtdSize = BtdHeadSize + sizeof(BtdText);
static_assert(sizeof(VictoryLocation) == 32 && offsetof(VictoryLocation, Kind) == 4 &&
              offsetof(VictoryLocation, Name) == 8 && offsetof(VictoryLocation, Destination) == 29);
static_assert(BtdHeadSize == 325 && BtdSize == 8526);

/// The known part of a BTD file.
using BtdImage = std::array<std::byte, BtdSize>;
[[nodiscard]] BtdImage EncodeBtd(const BtdHeader& header, const VictoryLocations& vls,
                                 const BtdText& text);

/// Reads the first 325 or 8526 bytes. Bytes past the end of a short file are zero.
[[nodiscard]] Result<BtdHead> ReadBtdHead(const std::string& path);
[[nodiscard]] Result<BtdFile> ReadBtd(const std::string& path);

/// Writes the first 8526 bytes in place; creates a missing file. A failure reports the state of the
/// file. With `known`, fails with ChangedByAnother if the file, as far as it reaches, differs
/// from it.
[[nodiscard]] Result<> WriteBtd(const std::string& path, std::uint8_t mapIndex,
                                const VictoryLocations& vls, const BtdText& text,
                                const BtdFile* known = nullptr);

/// True if `path` names an ordinary file that is neither hidden nor a system file.
[[nodiscard]] bool BtdExists(const std::string& path);

/// The text before the first NUL.
[[nodiscard]] std::string_view TrimAtNul(std::string_view text);

/// The field without its trailing NULs.
[[nodiscard]] std::string_view WithoutPadding(std::span<const char> field);

/// `text` padded with NULs to `width` bytes; a longer one is truncated.
[[nodiscard]] std::string PadText(std::string_view text, std::size_t width);

/// The field's text up to its first NUL, in UTF-8.
[[nodiscard]] std::string FieldText(std::span<const char> field);

/// Fills the field with `text` (UTF-8), truncated or padded with NULs.
void SetField(std::span<char> field, std::string_view text);

}  // namespace corvane
