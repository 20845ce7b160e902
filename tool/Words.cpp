#include "Words.h"

#include <algorithm>

#include "base/AnsiText.h"
#include "data/BtdFile.h"
#include "data/MapCatalogue.h"
#include "tool/Printable.h"

namespace corvane {

std::string MapName(const Layer& layer, int map) {
  return "map " + Printable(MapLabel(layer, map));
}

std::string ArrowNumber(std::int32_t arrow) {
  if (arrow == NoConnection) return "none";
  return arrow < 0 ? std::to_string(arrow) : ThreeDigits(arrow);
}

std::string KindName(VLKind kind) {
  switch (kind) {
    case VLKind::Unused:
      return "unused";
    case VLKind::Exit:
      return "exit";
    case VLKind::MinorObjective:
      return "minor objective";
    case VLKind::MajorObjective:
      return "major objective";
  }
  return "kind " + std::to_string(static_cast<std::int32_t>(kind));
}

std::string HexBytes(std::span<const std::uint8_t> bytes) {
  std::string hex;
  for (const std::uint8_t byte : bytes) {
    if (!hex.empty()) hex += ' ';
    AppendHex(hex, byte, 2);
  }
  return hex;
}

std::string HexBytes(std::span<const char> bytes) {
  const std::vector<std::uint8_t> numbers(bytes.begin(), bytes.end());
  return HexBytes(numbers);
}

std::string_view BytesAfterText(std::span<const char> field) {
  const std::string_view bytes = WithoutPadding(field);
  return bytes.substr(std::min(bytes.find('\0'), bytes.size()));
}

std::string QuotedField(std::span<const char> field) {
  const std::string_view rest = BytesAfterText(field);
  const std::string text = Quoted(FieldText(field));
  return rest.empty() ? text : text + " and the bytes " + HexBytes(rest);
}

Lines BriefLines(std::span<const char> field) {
  constexpr std::string_view LineEnd = "\r\n";
  Lines lines;
  const std::string text = FieldText(field);
  for (std::string_view rest = text; !rest.empty();) {
    const std::size_t end = rest.find(LineEnd);
    const bool ended = end != rest.npos;
    lines.push_back(Quoted(rest.substr(0, end)) + (ended ? "" : " without a line end"));
    rest.remove_prefix(ended ? end + LineEnd.size() : rest.size());
  }
  if (const std::string_view bytes = BytesAfterText(field); !bytes.empty())
    lines.push_back("bytes after the text: " + HexBytes(bytes));
  return lines;
}

}  // namespace corvane
