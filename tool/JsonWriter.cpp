// Writes JSON with one record per line, so that version control shows which records changed.
#include <optional>
#include <span>

#include "Fields.h"
#include "base/AnsiText.h"
#include "tool/Json.h"
#include "tool/Printable.h"

namespace corvane {
namespace {

void AppendUnit(std::string& json, std::uint32_t unit) {
  json += "\\u";
  for (const unsigned shift : {12U, 8U, 4U, 0U}) json += "0123456789abcdef"[unit >> shift & 0xF];
}

void AppendCharacter(std::string& json, const Character& character) {
  const std::uint32_t code = character.Code;
  if (code == '"' || code == '\\') {
    (json += '\\') += static_cast<char>(code);
  } else if (code == '\r' || code == '\n') {
    json += code == '\r' ? "\\r" : "\\n";
  } else if (!IsUnprintable(code)) {
    json += character.Bytes;
  } else if (code < 0x10000) {
    AppendUnit(json, code);
  } else {
    AppendUnit(json, 0xD7C0 + (code >> 10));
    AppendUnit(json, 0xDC00 + (code & 0x3FF));
  }
}

std::string JsonString(std::string_view text) {
  std::string json = "\"";
  while (!text.empty()) AppendCharacter(json, NextCharacter(text));
  return json + '"';
}

std::string HexObject(std::string_view bytes) {
  std::string json = R"({"Hex": ")";
  for (const char byte : bytes) AppendHex(json, static_cast<unsigned char>(byte), 2);
  return json + "\"}";
}

// Returns nothing if the bytes would not survive the way back: in some code pages not all do.
std::optional<std::string> DecodeText(std::string_view bytes) {
  std::string text = AnsiToText(bytes);
  if (TextToAnsi(text) != bytes) return std::nullopt;
  return text;
}

std::string TextValue(std::span<const char> field) {
  const std::string_view bytes = WithoutPadding(field);
  const std::optional<std::string> text = DecodeText(bytes);
  return text ? JsonString(*text) : HexObject(bytes);
}

std::string LinesValue(std::span<const char> field) {
  const std::string_view bytes = WithoutPadding(field);
  const std::optional<std::string> text = DecodeText(bytes);
  if (!text) return HexObject(bytes);
  std::string json = "[";
  for (std::string_view rest = *text; !rest.empty();) {
    const std::string_view line = rest.substr(0, std::min(rest.find('\n'), rest.size() - 1) + 1);
    json += (json.size() > 1 ? ",\n    " : "\n    ") + JsonString(line);
    rest.remove_prefix(line.size());
  }
  return json + (json.size() > 1 ? "\n  ]" : "]");
}

std::string Key(const char* name) { return std::string("\"").append(name).append("\": "); }

void AppendMember(std::string& object, const char* name, const std::string& value) {
  object += (object.size() > 1 ? ", " : "") + Key(name) + value;
}

template <typename Record, std::size_t Count>
std::string NumbersObject(const Record& record,
                          const std::array<NumberField<Record>, Count>& fields) {
  std::string object = "{";
  for (const auto& field : fields)
    AppendMember(object, field.Name, std::to_string(record.*field.Number));
  return object + '}';
}

std::string VLObject(const VictoryLocation& vl) {
  const auto pair = [](const std::array<std::uint8_t, 2>& bytes) {
    return '[' + std::to_string(bytes[0]) + ", " + std::to_string(bytes[1]) + ']';
  };
  std::string object = "{";
  AppendMember(object, "TileX", std::to_string(vl.TileX));
  AppendMember(object, "TileY", std::to_string(vl.TileY));
  AppendMember(object, "Opaque0", pair(vl.Opaque0));
  AppendMember(object, "Kind", std::to_string(static_cast<std::int32_t>(vl.Kind)));
  AppendMember(object, "Name", TextValue(vl.Name));
  AppendMember(object, "Opaque1", std::to_string(vl.Opaque1));
  AppendMember(object, "Destination", std::to_string(vl.Destination));
  AppendMember(object, "Opaque2", pair(vl.Opaque2));
  return object + '}';
}

class Lines {  // an array with one element per line
 public:
  void Add(const std::string& element) { Json += (Json.empty() ? "\n    " : ",\n    ") + element; }
  [[nodiscard]] std::string Array() const { return '[' + Json + (Json.empty() ? "]" : "\n  ]"); }

 private:
  std::string Json;
};

Lines ConnectionLines(const Layer& layer) {
  Lines lines;
  for (int from = 0; from < MapSlotCount; ++from) {
    for (int to = 0; to < MapSlotCount; ++to) {
      const std::int32_t arrow = layer.Connections(from, to);
      if (arrow == NoConnection) continue;
      lines.Add("{\"From\": " + std::to_string(from) + ", \"To\": " + std::to_string(to) +
                ", \"Arrow\": " + std::to_string(arrow) + '}');
    }
  }
  return lines;
}

void AppendSection(std::string& json, const char* name, const std::string& value) {
  json += ",\n  " + Key(name) + value;
}

}  // namespace

std::string TablesToJson(const Layer& layer) {
  Lines tiles, arrows, hotspots;
  for (int map = 0; map < MapSlotCount; ++map) {
    tiles.Add(NumbersObject(layer.Tiles[map], RectFields));
    hotspots.Add(NumbersObject(layer.Hotspots[map], HotspotFields));
  }
  for (int arrow = 0; arrow < ArrowSlotCount; ++arrow)
    arrows.Add(NumbersObject(layer.Arrows[arrow], RectFields));
  std::string json = "{\n  \"Format\": \"Corvane tables\",\n  \"Version\": 1";
  AppendSection(json, "StrMap", tiles.Array());
  AppendSection(json, "StrArrow", arrows.Array());
  AppendSection(json, "MapConnections", ConnectionLines(layer).Array());
  AppendSection(json, "MapHotspots", hotspots.Array());
  return json + "\n}\n";
}

std::string BtdToJson(const MapFile& file) {
  Lines vls;
  for (const VictoryLocation& vl : file.VLs) vls.Add(VLObject(vl));
  std::string json = "{\n  \"Format\": \"Corvane BTD\",\n  \"Version\": 1";
  AppendSection(json, "Magic", std::to_string(file.Header.Magic));
  AppendSection(json, "MapIndex", std::to_string(file.Header.MapIndex));
  AppendSection(json, "VictoryLocations", vls.Array());
  AppendSection(json, "BaseName", TextValue(file.Text.BaseName));
  for (const BriefField& brief : BriefFields)
    AppendSection(json, brief.Name, LinesValue(file.Text.*brief.Text));
  return json + "\n}\n";
}

}  // namespace corvane
