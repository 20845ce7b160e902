#include "data/BtdFile.h"

#include <bit>
#include <cstring>
#include <span>

#include "base/FileRanges.h"
#include "base/FolderScan.h"

namespace corvane {
namespace {

// Integers and records move as they lie in memory.
static_assert(std::endian::native == std::endian::little);

using BtdImage = std::array<std::byte, BtdSize>;

constexpr std::size_t MapIndexOffset = 4;
constexpr std::size_t VLsOffset = BtdHeaderSize;
constexpr std::size_t TextOffset = BtdHeadSize;

FileResult ReadImage(const std::string& path, BtdImage& image, std::size_t size) {
  const ReadRange range{0, std::span(image).first(size)};
  return ReadRanges(path, {&range, 1});
}

void TakeHead(const BtdImage& image, BtdHeader& header, VictoryLocations& vls) {
  std::memcpy(&header.Magic, image.data(), sizeof header.Magic);
  header.MapIndex = std::to_integer<std::uint8_t>(image[MapIndexOffset]);
  std::memcpy(vls.data(), image.data() + VLsOffset, sizeof vls);
}

}  // namespace

FileResult ReadBtdHead(const std::string& path, BtdHeader& header, VictoryLocations& vls) {
  BtdImage image;
  FileResult result = ReadImage(path, image, BtdHeadSize);
  if (result.Done()) TakeHead(image, header, vls);
  return result;
}

FileResult ReadBtd(const std::string& path, BtdHeader& header, VictoryLocations& vls,
                   BtdText& text) {
  BtdImage image;
  FileResult result = ReadImage(path, image, BtdSize);
  if (!result.Done()) return result;
  TakeHead(image, header, vls);
  std::memcpy(&text, image.data() + TextOffset, sizeof text);
  return result;
}

FileResult WriteBtd(const std::string& path, std::uint8_t mapIndex, const VictoryLocations& vls,
                    const BtdText& text) {
  BtdImage image;
  std::memcpy(image.data(), &BtdMagic, sizeof BtdMagic);
  image[MapIndexOffset] = std::byte{mapIndex};
  std::memcpy(image.data() + VLsOffset, vls.data(), sizeof vls);
  std::memcpy(image.data() + TextOffset, &text, sizeof text);
  const WriteRange range{0, image};
  return SaveInPlace(path, {&range, 1}, IfMissing::Create);
}

bool BtdExists(const std::string& path) { return OrdinaryFileExists(path); }

std::string_view TrimAtNul(std::string_view text) { return text.substr(0, text.find('\0')); }

std::string PadText(std::string_view text, std::size_t width) {
  std::string field(text);
  field.resize(width, '\0');
  return field;
}

}  // namespace corvane
