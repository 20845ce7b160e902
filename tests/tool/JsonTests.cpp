#include "tool/Json.h"

#include <gtest/gtest.h>

#include <cstring>

#include "Schema.h"
#include "SchemaCheck.h"
#include "samples/Noise.h"
#include "samples/SampleGame.h"

using namespace corvane;
using Json = nlohmann::json;

namespace {

// New bytes each time the test is repeated.
Noise& Random() {
  static Noise noise(4);
  return noise;
}

std::string RandomBytes(std::size_t count) {
  std::string bytes;
  const int blanks = Random().UpTo(3);
  while (bytes.size() < count)
    bytes += Random().UpTo(3) < blanks ? '\0' : static_cast<char>(Random().UpTo(255));
  return bytes;
}

Layer LayerWith(const std::string& patch) {
  GameTables tables;
  std::memcpy(&tables, patch.data(), sizeof tables);
  Layer layer;
  layer.Tiles = tables.Tiles;
  layer.Arrows = tables.Arrows;
  layer.Connections = tables.Connections;
  layer.Hotspots = tables.Hotspots;
  return layer;
}

std::string PatchOf(const Layer& layer) {
  const GameTables tables = TablesOf(layer);
  return {reinterpret_cast<const char*>(&tables), sizeof tables};
}

MapFile FileWith(const std::string& image) {
  MapFile file;
  file.Length = image.size();
  std::memcpy(&file.Header.Magic, image.data(), 4);
  file.Header.MapIndex = static_cast<std::uint8_t>(image[4]);
  std::memcpy(&file.VLs, image.data() + 5, 320);
  std::memcpy(&file.Text, image.data() + 325, 8201);
  return file;
}

// The bytes of the file in a document, or why it is refused.
std::string ReadBack(const std::string& json) {
  const auto read = ParseJson(json);
  if (!read.Done()) return read.Error();
  return read->IsBtd ? BtdImage(read->Btd) : PatchOf(read->Tables);
}

bool FitsSchema(const std::string& json) {
  const Json schema = Json::parse(Schema);
  SchemaCheck check{schema, {}};
  const bool fits = check.Accepts(schema, Json::parse(json));
  EXPECT_EQ(check.Unknown, "");
  return fits;
}

const std::string SampleTables = TablesToJson(LayerWith(PatchBytes(MakeSampleGame().Tables)));
const std::string SampleBtd =
    BtdToJson(FileWith(BtdBytes(MakeSampleGame().Maps[4]).substr(0, 8526)));

}  // namespace

TEST(Json, PreservesRandomTables) {
  for (int round = 0; round < 20; ++round) {
    const std::string patch = RandomBytes(11212);
    const std::string json = TablesToJson(LayerWith(patch));
    ASSERT_TRUE(ReadBack(json) == patch) << json;
    EXPECT_TRUE(FitsSchema(json)) << json;
  }
}

TEST(Json, PreservesRandomBtdFiles) {
  for (int round = 0; round < 20; ++round) {
    const std::string image = RandomBytes(8526);
    const std::string json = BtdToJson(FileWith(image));
    ASSERT_TRUE(ReadBack(json) == image) << json;
    EXPECT_TRUE(FitsSchema(json)) << json;
  }
}

TEST(Json, PreservesTheSample) {
  const SampleGame game = MakeSampleGame();
  EXPECT_TRUE(ReadBack(SampleTables) == PatchBytes(game.Tables));
  for (const SampleMap& map : game.Maps) {
    const std::string image = BtdBytes(map).substr(0, 8526);
    EXPECT_TRUE(ReadBack(BtdToJson(FileWith(image))) == image) << map.FileName;
  }
}

TEST(Json, SpellsFieldsAsDocumented) {
  Layer layer;
  layer.Tiles[0] = {1, -2, 3, 4, 5, 6, 7};
  layer.Connections(0, 1) = -2;
  layer.Hotspots[42] = {800, 600};
  const Json json = Json::parse(TablesToJson(layer));
  EXPECT_EQ(json["StrMap"][0].dump(),
            R"({"Height":7,"Left":4,"Top":5,"Width":6,"Word0":1,"Word1":-2,"Word2":3})");
  EXPECT_EQ(json["MapConnections"][1].dump(), R"({"Arrow":-2,"From":0,"To":1})");
  EXPECT_EQ(json["MapHotspots"][42].dump(), R"({"CenterX":800,"CenterY":600})");
}

TEST(Json, WritesReadableTexts) {
  MapFile file;
  SetField(file.VLs[0].Name, "Ch\u00E2teau \"x\\y\"");
  std::memcpy(file.VLs[1].Name.data(), "Ford\0east\x81\x1B", 11);
  SetField(file.Text.AlliedBrief, "one\r\ntwo\nthree");
  const std::string json = BtdToJson(file);
  for (const char* part :
       {"\"Name\": \"Ch\u00E2teau \\\"x\\\\y\\\"\"", R"("Ford\u0000east\u0081\u001b")",
        "[\n    \"one\\r\\n\",\n    \"two\\n\",\n    \"three\"\n  ]"}) {
    EXPECT_NE(json.find(part), json.npos) << part;
  }
}

TEST(Json, TakesHexForAnyText) {
  std::string json = SampleBtd;
  const std::size_t at = json.find("\"BaseName\": ") + 12;
  json.replace(at, json.find('\n', at) - at - 1, R"({"Hex": "466F72640081"})");
  EXPECT_EQ(ReadBack(json).substr(325, 9), std::string("Ford\0\x81\0\0\0", 9));
  EXPECT_TRUE(FitsSchema(json));
}

// The place of a value in a valid document, its replacement, and the expected reason.
struct Fault {
  const char* Place;
  const char* Value;  // JSON; empty to remove the value
  const char* Reason;
};
void PrintTo(const Fault& fault, std::ostream* out) { *out << fault.Place << " " << fault.Value; }

struct JsonFault : testing::TestWithParam<Fault> {
  static std::string Broken(const std::string& sample) {
    Json json = Json::parse(sample);
    const Json::json_pointer place(GetParam().Place);
    Json& parent = json[place.parent_pointer()];
    if (*GetParam().Value != '\0') {
      json[place] = Json::parse(GetParam().Value);
    } else if (parent.is_array()) {
      parent.erase(std::stoul(place.back()));
    } else {
      parent.erase(place.back());
    }
    return json.dump();
  }
  static void ExpectRefused(const std::string& sample) {
    const std::string json = Broken(sample);
    EXPECT_EQ(ReadBack(json), GetParam().Reason);
  }
};

struct TablesFault : JsonFault {};
struct BtdFault : JsonFault {};

TEST_P(TablesFault, IsRefused) { ExpectRefused(SampleTables); }
TEST_P(TablesFault, DoesNotFitTheSchema) { EXPECT_FALSE(FitsSchema(Broken(SampleTables))); }
TEST_P(BtdFault, IsRefused) { ExpectRefused(SampleBtd); }
TEST_P(BtdFault, DoesNotFitTheSchema) { EXPECT_FALSE(FitsSchema(Broken(SampleBtd))); }

constexpr char OutOf32[] = ": must lie between -2147483648 and 2147483647";
static const std::string Left = "/StrMap/3/Left", TooLarge = Left + OutOf32;

INSTANTIATE_TEST_SUITE_P(
    Json, TablesFault,
    testing::Values(
        Fault{"/Format", R"("Corvane")", R"(/Format: must be "Corvane tables" or "Corvane BTD")"},
        Fault{"/Format", "", "/Format: is missing"}, Fault{"/Version", "", "/Version: is missing"},
        Fault{"/Version", "2", "/Version: must lie between 1 and 1"},
        Fault{"/Extra", "1", "/Extra: unknown key"}, Fault{"/a~1b~0", "1", "/a~1b~0: unknown key"},
        Fault{"/StrMap/3/left", "1", "/StrMap/3/left: unknown key"},
        Fault{"/StrMap/3/Left", "", "/StrMap/3/Left: is missing"},
        Fault{"/StrMap/3/Left", "true", "/StrMap/3/Left: must be a whole number"},
        Fault{"/StrMap/3/Left", "\"1\"", "/StrMap/3/Left: must be a whole number"},
        Fault{"/StrMap/3/Left", "1.5", "/StrMap/3/Left: must be a whole number"},
        Fault{"/StrMap/3/Left", "null", "/StrMap/3/Left: must be a whole number"},
        Fault{"/StrMap/3/Left", "2147483648", TooLarge.c_str()},
        Fault{"/StrMap/3/Left", "-2147483649", TooLarge.c_str()},
        Fault{"/StrMap/3/Left", "18446744073709551615", TooLarge.c_str()},
        Fault{"/StrMap/42", "", "/StrMap: must have 43 elements, not 42"},
        Fault{"/StrArrow/81", "{}", "/StrArrow: must have 81 elements, not 82"},
        Fault{"/StrArrow", "{}", "/StrArrow: must be an array"},
        Fault{"/StrArrow/80", "[]", "/StrArrow/80: must be an object"},
        Fault{"/MapConnections", "null", "/MapConnections: must be an array"},
        Fault{"/MapConnections/0/From", "43", "/MapConnections/0/From: must lie between 0 and 42"},
        Fault{"/MapConnections/0/To", "-1", "/MapConnections/0/To: must lie between 0 and 42"},
        Fault{"/MapConnections/0/Arrow", "-1", "/MapConnections/0/Arrow: -1 means no connection"},
        Fault{"/MapHotspots/0/CenterY", "", "/MapHotspots/0/CenterY: is missing"}));

INSTANTIATE_TEST_SUITE_P(
    Json, BtdFault,
    testing::Values(
        Fault{"/MapIndex", "256", "/MapIndex: must lie between 0 and 255"},
        Fault{"/Magic", "{}", "/Magic: must be a whole number"},
        Fault{"/VictoryLocations/9", "", "/VictoryLocations: must have 10 elements, not 9"},
        Fault{"/VictoryLocations/0/TileX", "-1",
              "/VictoryLocations/0/TileX: must lie between 0 and 255"},
        Fault{"/VictoryLocations/0/Opaque0/1", "256",
              "/VictoryLocations/0/Opaque0/1: must lie between 0 and 255"},
        Fault{"/VictoryLocations/0/Opaque2", "[1]",
              "/VictoryLocations/0/Opaque2: must have 2 elements, not 1"},
        Fault{"/VictoryLocations/0/Kind", "5e1",
              "/VictoryLocations/0/Kind: must be a whole number"},
        Fault{"/BaseName", "5", "/BaseName: must be a text, or an object with the key Hex"},
        Fault{"/BaseName", R"({"Hex": "4"})", "/BaseName/Hex: must be pairs of hexadecimal digits"},
        Fault{"/BaseName", R"({"Hex": "4g"})",
              "/BaseName/Hex: must be pairs of hexadecimal digits"},
        Fault{"/BaseName", R"({"Hex": 46})", "/BaseName/Hex: must be a text"},
        Fault{"/BaseName", R"({"Hex": "46", "x": 1})", "/BaseName/x: unknown key"},
        Fault{"/AlliedBrief", "\"text\"",
              "/AlliedBrief: must be an array of texts, or an object with the key Hex"},
        Fault{"/AxisBrief", "[\"a\", 1]", "/AxisBrief/1: must be a text"}));

TEST(Json, RefusesWhatASchemaCannotExpress) {
  const std::string start = R"({"Format": "Corvane tables", )";
  const std::string deep = std::string(100000, '[');
  const struct {
    std::string Text;
    std::string Reason;
  } rows[] = {
      {"", "/: not JSON at line 1, column 1"},
      {"{\n  \"a\": 1,\n  b", "/a: not JSON at line 3, column 3"},
      {start + "\"StrMap\": [1, 2, }", "/StrMap/2: not JSON at line 1, column 47"},
      {start + "\"Format\": 1}", "/Format: the key occurs twice"},
      {"[]", "/: must be an object"},
      {std::string(SampleTables) + '\0' + "{", "/: not JSON at line 270, column 1"},
      {"\"\xFF\"", "/: not JSON at line 1, column 2"},
      {deep, "/0/0/0/0/0/0/0/0: nested too deeply"},
      {"{\"" + std::string(MaxJsonSize, ' ') + "\": 1}", "/: longer than 1048576 bytes"},
  };
  for (const auto& [text, reason] : rows) EXPECT_EQ(ReadBack(text), reason) << text.substr(0, 80);
}

TEST(Json, RefusesATextThatCannotBeStored) {
  const auto named = [](const std::string& name) {
    Json json = Json::parse(SampleBtd);
    json["BaseName"] = name;
    return ReadBack(json.dump());
  };
  EXPECT_EQ(named("123456789").substr(325, 9), "123456789");
  EXPECT_EQ(named("1234567890"), "/BaseName: has 10 bytes; the field holds 9");
  EXPECT_EQ(named("\u4E2D"), "/BaseName: has a character that the system's code page lacks");
}

TEST(Json, RefusesAConnectionGivenTwice) {
  Json json = Json::parse(SampleTables);
  json["MapConnections"].push_back(json["MapConnections"][0]);
  EXPECT_EQ(ReadBack(json.dump()), "/MapConnections/90: the connection occurs twice");
}
