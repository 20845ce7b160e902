#include <algorithm>
#include <array>
#include <limits>
#include <span>

#include "Fields.h"
#include "JsonTree.h"
#include "base/AnsiText.h"
#include "tool/Json.h"

namespace corvane {
namespace {

using Json = nlohmann::json;
using Limits32 = std::numeric_limits<std::int32_t>;

// The place of a value in the document, converted to a JSON pointer only for a failure.
struct Place {
  const Place* Parent = nullptr;
  std::string_view Key = {};
  std::size_t Index = 0;

  [[nodiscard]] Place operator/(std::string_view key) const { return {this, key, 0}; }
  [[nodiscard]] Place operator/(std::size_t index) const { return {this, {}, index}; }
  [[nodiscard]] std::string Pointer() const {
    if (Parent == nullptr) return {};
    return Parent->Pointer() + (Key.empty() ? '/' + std::to_string(Index) : PointerPart(Key));
  }
};

// Converts values to fields. An operation that meets an invalid value returns false; the first one
// sets Fault.
class Decoder {
 public:
  std::string Fault;

  bool Refuse(const Place& at, const std::string& reason) {
    if (Fault.empty()) Fault = (at.Parent != nullptr ? at.Pointer() : "/") + ": " + reason;
    return false;
  }

  bool Object(const Json& node, const Place& at, std::span<const char* const> keys) {
    if (!node.is_object()) return Refuse(at, "must be an object");
    for (const auto& [key, value] : node.items()) {
      const auto is = [&given = key](const char* known) { return given == known; };
      if (key.empty()) return Refuse(at, "has an empty key");
      if (std::ranges::none_of(keys, is)) return Refuse(at / key, "unknown key");
    }
    for (const char* key : keys)
      if (!node.contains(key)) return Refuse(at / key, "is missing");
    return true;
  }

  bool Array(const Json& node, const Place& at, std::size_t size) {
    if (!node.is_array()) return Refuse(at, "must be an array");
    if (node.size() == size) return true;
    return Refuse(
        at, "must have " + std::to_string(size) + " elements, not " + std::to_string(node.size()));
  }

  template <typename Number>
  bool Integer(const Json& node, const Place& at, Number& number,
               std::int64_t min = std::numeric_limits<Number>::min(),
               std::int64_t max = std::numeric_limits<Number>::max()) {
    if (!node.is_number_integer()) return Refuse(at, "must be an integer");
    const bool huge = node.is_number_unsigned() && node.get<std::uint64_t>() > Limits32::max();
    const auto value = node.get<std::int64_t>();
    if (huge || value < min || value > max) return Refuse(at, "must be " + RangeText(min, max));
    number = static_cast<Number>(value);
    return true;
  }

  template <typename Record, std::size_t Count>
  bool Numbers(const Json& node, const Place& at, Record& record,
               const std::array<NumberField<Record>, Count>& fields) {
    std::array<const char*, Count> keys{};
    std::ranges::transform(fields, keys.begin(), [](const auto& field) { return field.Name; });
    if (!Object(node, at, keys)) return false;
    return std::ranges::all_of(fields, [&](const auto& field) {
      return Integer(node[field.Name], at / field.Name, record.*field.Number);
    });
  }

  bool BytePair(const Json& node, const Place& at, std::array<std::uint8_t, 2>& pair) {
    return Array(node, at, 2) && Integer(node[0], at / std::size_t{0}, pair[0]) &&
           Integer(node[1], at / std::size_t{1}, pair[1]);
  }

  bool Text(const Json& node, const Place& at, std::span<char> field) {
    if (node.is_object()) return Hex(node, at, field);
    if (!node.is_string()) return Refuse(at, "must be a string, or an object with the key Hex");
    return Fill(node.get_ref<const std::string&>(), at, field);
  }

  bool Lines(const Json& node, const Place& at, std::span<char> field) {
    if (node.is_object()) return Hex(node, at, field);
    if (!node.is_array())
      return Refuse(at, "must be an array of strings, or an object with the key Hex");
    std::string text;
    for (std::size_t line = 0; line < node.size(); ++line) {
      if (!node[line].is_string()) return Refuse(at / line, "must be a string");
      text += node[line].get_ref<const std::string&>();
    }
    return Fill(text, at, field);
  }

 private:
  static std::string RangeText(std::int64_t min, std::int64_t max) {
    if (min == max) return std::to_string(min);
    return "between " + std::to_string(min) + " and " + std::to_string(max);
  }

  bool Fill(const std::string& text, const Place& at, std::span<char> field) {
    const std::string bytes = TextToAnsi(text);
    if (AnsiToText(bytes) != text)
      return Refuse(at, "contains a character that is not in the system's code page");
    return Put(bytes, at, field);
  }

  bool Put(const std::string& bytes, const Place& at, std::span<char> field) {
    if (bytes.size() > field.size())
      return Refuse(at, "has " + std::to_string(bytes.size()) + " bytes; the field holds " +
                            std::to_string(field.size()));
    std::ranges::fill(field, '\0');
    std::ranges::copy(bytes, field.begin());
    return true;
  }

  bool Hex(const Json& node, const Place& at, std::span<char> field) {
    if (!Object(node, at, std::array{"Hex"})) return false;
    if (!node["Hex"].is_string()) return Refuse(at / "Hex", "must be a string");
    const auto& digits = node["Hex"].get_ref<const std::string&>();
    constexpr std::string_view Known = "0123456789ABCDEF";
    if (digits.size() % 2 != 0 || digits.find_first_not_of(Known) != digits.npos)
      return Refuse(at / "Hex", "must be pairs of hexadecimal digits");
    std::string bytes;
    for (std::size_t pair = 0; pair < digits.size(); pair += 2)
      bytes += static_cast<char>(Known.find(digits[pair]) << 4 | Known.find(digits[pair + 1]));
    return Put(bytes, at / "Hex", field);
  }
};

// An array with an element for each slot of a table.
template <typename Table, typename Fields>
bool ReadTable(Decoder& decoder, const Json& document, const char* key, Table& table,
               const Fields& fields, std::size_t count) {
  const Place root;
  const Place at = root / key;
  if (!decoder.Array(document[key], at, count)) return false;
  for (std::size_t slot = 0; slot < count; ++slot) {
    if (!decoder.Numbers(document[key][slot], at / slot, table[static_cast<int>(slot)], fields))
      return false;
  }
  return true;
}

bool ReadConnection(Decoder& decoder, const Json& node, const Place& at, ConnectionTable& table) {
  int from = 0;
  int to = 0;
  std::int32_t arrow = NoConnection;
  if (!decoder.Object(node, at, std::array{"From", "To", "Arrow"}) ||
      !decoder.Integer(node["From"], at / "From", from, 0, MapSlotCount - 1) ||
      !decoder.Integer(node["To"], at / "To", to, 0, MapSlotCount - 1) ||
      !decoder.Integer(node["Arrow"], at / "Arrow", arrow)) {
    return false;
  }
  if (arrow == NoConnection) return decoder.Refuse(at / "Arrow", "-1 means no connection");
  if (table(from, to) != NoConnection) return decoder.Refuse(at, "duplicate connection");
  table(from, to) = arrow;
  return true;
}

bool ReadConnections(Decoder& decoder, const Json& document, ConnectionTable& table) {
  for (int cell = 0; cell < MapSlotCount * MapSlotCount; ++cell)
    table(cell % MapSlotCount, cell / MapSlotCount) = NoConnection;
  const Place root;
  const Place at = root / "MapConnections";
  const Json& array = document["MapConnections"];
  if (!array.is_array()) return decoder.Refuse(at, "must be an array");
  for (std::size_t i = 0; i < array.size(); ++i) {
    if (!ReadConnection(decoder, array[i], at / i, table)) return false;
  }
  return true;
}

bool CheckVersion(Decoder& decoder, const Json& document) {
  int version = 0;
  const Place root;
  return decoder.Integer(document["Version"], root / "Version", version, 1, 1);
}

bool ReadTables(Decoder& decoder, const Json& document, Layer& layer) {
  return decoder.Object(document, {},
                        std::array{"Format", "Version", "StrMap", "StrArrow", "MapConnections",
                                   "MapHotspots"}) &&
         CheckVersion(decoder, document) &&
         ReadTable(decoder, document, "StrMap", layer.Tiles, RectFields, MapSlotCount) &&
         ReadTable(decoder, document, "StrArrow", layer.Arrows, RectFields, ArrowSlotCount) &&
         ReadConnections(decoder, document, layer.Connections) &&
         ReadTable(decoder, document, "MapHotspots", layer.Hotspots, HotspotFields, MapSlotCount);
}

bool ReadVL(Decoder& decoder, const Json& node, const Place& at, VictoryLocation& vl) {
  if (!decoder.Object(node, at,
                      std::array{"TileX", "TileY", "Opaque0", "Kind", "Name", "Opaque1",
                                 "Destination", "Opaque2"})) {
    return false;
  }
  for (const ByteField& field : VLByteFields)
    if (!decoder.Integer(node[field.Name], at / field.Name, vl.*field.Byte)) return false;
  for (const BytePairField& field : VLPairFields)
    if (!decoder.BytePair(node[field.Name], at / field.Name, vl.*field.Bytes)) return false;
  std::int32_t kind = 0;
  if (!decoder.Integer(node["Kind"], at / "Kind", kind)) return false;
  vl.Kind = VLKind{kind};
  return decoder.Text(node["Name"], at / "Name", vl.Name);
}

bool ReadVLs(Decoder& decoder, const Json& document, VictoryLocations& vls) {
  const Place root;
  const Place at = root / "VictoryLocations";
  const Json& array = document["VictoryLocations"];
  if (!decoder.Array(array, at, vls.size())) return false;
  for (std::size_t vl = 0; vl < vls.size(); ++vl)
    if (!ReadVL(decoder, array[vl], at / vl, vls[vl])) return false;
  return true;
}

bool ReadBtdRecords(Decoder& decoder, const Json& document, BtdFile& file) {
  const Place root;
  return decoder.Object(document, root,
                        std::array{"Format", "Version", "Magic", "MapIndex", "VictoryLocations",
                                   "BaseName", "AlliedBrief", "AxisBrief"}) &&
         CheckVersion(decoder, document) &&
         decoder.Integer(document["Magic"], root / "Magic", file.Header.Magic) &&
         decoder.Integer(document["MapIndex"], root / "MapIndex", file.Header.MapIndex) &&
         ReadVLs(decoder, document, file.VLs) &&
         decoder.Text(document["BaseName"], root / "BaseName", file.Text.BaseName) &&
         decoder.Lines(document["AlliedBrief"], root / "AlliedBrief", file.Text.AlliedBrief) &&
         decoder.Lines(document["AxisBrief"], root / "AxisBrief", file.Text.AxisBrief);
}

bool ReadDocument(Decoder& decoder, const Json& document, JsonDocument& read) {
  const Place root;
  if (!document.is_object()) return decoder.Refuse(root, "must be an object");
  if (!document.contains("Format")) return decoder.Refuse(root / "Format", "is missing");
  const Json& format = document["Format"];
  read.IsBtd = format == "Corvane BTD";
  if (read.IsBtd) {
    BtdFile file{.Length = BtdSize};
    if (!ReadBtdRecords(decoder, document, file)) return false;
    read.Btd = MakeMapFile({}, file);
    return true;
  }
  if (format == "Corvane tables") return ReadTables(decoder, document, read.Tables);
  return decoder.Refuse(root / "Format", R"(must be "Corvane tables" or "Corvane BTD")");
}

}  // namespace

Result<JsonDocument, std::string> ParseJson(std::string_view text) {
  if (text.size() > MaxJsonSize) return "/: longer than " + std::to_string(MaxJsonSize) + " bytes";
  const Result<Json, std::string> tree = ParseTree(text);
  if (!tree.Done()) return tree.Error();
  JsonDocument document;
  Decoder decoder;
  if (ReadDocument(decoder, *tree, document)) return document;
  return decoder.Fault;
}

}  // namespace corvane
