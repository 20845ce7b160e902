#include "data/BtdFile.h"

#include <bit>
#include <cstring>

#include "base/AnsiText.h"
#include "base/FileRanges.h"
#include "base/FolderScan.h"

namespace corvane {
namespace {

// Integers and records are copied from and to memory unchanged.
static_assert(std::endian::native == std::endian::little);

constexpr std::size_t MapIndexOffset = 4;
constexpr std::size_t VLsOffset = BtdHeaderSize;
constexpr std::size_t TextOffset = BtdHeadSize;

Result<std::uint64_t> ReadImage(const std::string& path, std::span<std::byte> image) {
  const ReadRange range{0, image};
  return ReadRanges(path, {&range, 1});
}

void DecodeHead(const BtdImage& image, BtdHeader& header, VictoryLocations& vls) {
  std::memcpy(&header.Magic, image.data(), sizeof header.Magic);
  header.MapIndex = std::to_integer<std::uint8_t>(image[MapIndexOffset]);
  std::memcpy(vls.data(), image.data() + VLsOffset, sizeof vls);
}

}  // namespace

Result<BtdHead> ReadBtdHead(const std::string& path) {
  BtdImage image;
  const auto read = ReadImage(path, std::span(image).first(BtdHeadSize));
  if (!read.Done()) return read.Error();
  BtdHead head;
  DecodeHead(image, head.Header, head.VLs);
  return head;
}

Result<BtdFile> ReadBtd(const std::string& path) {
  BtdImage image;
  const auto read = ReadImage(path, image);
  if (!read.Done()) return read.Error();
  BtdFile file{.Length = *read};
  DecodeHead(image, file.Header, file.VLs);
  std::memcpy(&file.Text, image.data() + TextOffset, sizeof file.Text);
  return file;
}

BtdImage EncodeBtd(const BtdHeader& header, const VictoryLocations& vls, const BtdText& text) {
  BtdImage image;
  std::memcpy(image.data(), &header.Magic, sizeof header.Magic);
  image[MapIndexOffset] = std::byte{header.MapIndex};
  std::memcpy(image.data() + VLsOffset, vls.data(), sizeof vls);
  std::memcpy(image.data() + TextOffset, &text, sizeof text);
  return image;
}

Result<> WriteBtd(const std::string& path, std::uint8_t mapIndex, const VictoryLocations& vls,
                  const BtdText& text, const BtdFile* known) {
  const BtdImage image = EncodeBtd({BtdMagic, mapIndex}, vls, text);
  BtdImage old;
  WriteRange range{0, image};
  if (known != nullptr) {
    old = EncodeBtd(known->Header, known->VLs, known->Text);
    range.Known = old;
  }
  return SaveInPlace(path, {&range, 1}, IfMissing::Create);
}

bool BtdExists(const std::string& path) { return OrdinaryFileExists(path); }

std::string_view TrimAtNul(std::string_view text) { return text.substr(0, text.find('\0')); }

std::string_view WithoutPadding(std::span<const char> field) {
  static constexpr std::array<char, 256> Block{};  // faster than a byte-by-byte search
  std::string_view bytes(field.data(), field.size());
  while (bytes.ends_with({Block.data(), Block.size()})) bytes.remove_suffix(Block.size());
  return bytes.substr(0, bytes.find_last_not_of('\0') + 1);
}

std::string PadText(std::string_view text, std::size_t width) {
  std::string field(text);
  field.resize(width, '\0');
  return field;
}

std::string FieldText(std::span<const char> field) {
  return AnsiToText(TrimAtNul({field.data(), field.size()}));
}

void SetField(std::span<char> field, std::string_view text) {
  PadText(TextToAnsi(text), field.size()).copy(field.data(), field.size());
}

}  // namespace corvane
