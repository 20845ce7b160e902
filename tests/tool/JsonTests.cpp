#include "tool/Json.h"

#include <gtest/gtest.h>

#include <cstring>
#include <nlohmann/json.hpp>

#include "SampleLayer.h"

using namespace corvane;
using Json = nlohmann::json;

namespace {

// The bytes of the file that a document describes, or why it is rejected.
std::string ReadBack(const std::string& json) {
  const auto read = ParseJson(json);
  if (!read.Done()) return read.Error();
  if (read->IsBtd) return EncodeMapFile(read->Btd);
  return PatchBytes(TablesOf(read->Tables));
}

const Layer Sample = LayerOf(MakeSampleGame());
const std::string SampleTables = TablesToJson(Sample);
const std::string SampleBtd = BtdToJson(Sample.Files[4]);

}  // namespace

TEST(Json, PreservesTheSample) {
  EXPECT_TRUE(ReadBack(SampleTables) == PatchBytes(MakeSampleGame().Tables));
  for (const MapFile& file : Sample.Files) {
    EXPECT_TRUE(ReadBack(BtdToJson(file)) == EncodeMapFile(file)) << file.Name;
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
  file.Text.AlliedBrief = "one\r\ntwo\nthree";
  const std::string json = BtdToJson(file);
  for (const char* part :
       {"\"Name\": \"Ch\u00E2teau \\\"x\\\\y\\\"\"", R"("Ford\u0000east\u0081\u001b")",
        "[\n    \"one\\r\\n\",\n    \"two\\n\",\n    \"three\"\n  ]"}) {
    EXPECT_NE(json.find(part), json.npos) << part;
  }
}

TEST(Json, AcceptsHexForAnyText) {
  std::string json = SampleBtd;
  const std::size_t at = json.find("\"BaseName\": ") + 12;
  json.replace(at, json.find('\n', at) - at - 1, R"({"Hex": "466F72640081"})");
  EXPECT_EQ(ReadBack(json).substr(325, 9), std::string("Ford\0\x81\0\0\0", 9));
}

// A value of a valid document, its replacement, and the error that this causes.
struct Fault {
  const char* Place;
  const char* Value;  // JSON; empty to remove the value
  const char* Reason;
  const char* ReportedAt = Place;
};

static void ExpectRefused(const std::string& sample, const Fault& fault) {
  Json json = Json::parse(sample);
  const Json::json_pointer place(fault.Place);
  if (*fault.Value != '\0') {
    json[place] = Json::parse(fault.Value);
  } else if (Json& parent = json[place.parent_pointer()]; parent.is_array()) {
    parent.erase(std::stoul(place.back()));
  } else {
    parent.erase(place.back());
  }
  EXPECT_EQ(ReadBack(json.dump()), std::string(fault.ReportedAt) + fault.Reason);
}

constexpr char TooLarge[] = ": must be between -2147483648 and 2147483647";
constexpr char NoNumber[] = ": must be an integer";

TEST(Json, RefusesFaultyTables) {
  const Fault rows[] = {
      {"/Format", R"("Corvane")", R"(: must be "Corvane tables" or "Corvane BTD")"},
      {"/Version", "", ": is missing"},
      {"/Version", "2", ": must be 1"},
      {"/Extra", "1", ": unknown key"},
      {"/a~1b~0", "1", ": unknown key"},
      {"/StrMap/3/Left", "\"1\"", NoNumber},
      {"/StrMap/3/Left", "2147483648", TooLarge},
      {"/StrMap/3/Left", "-2147483649", TooLarge},
      {"/StrMap/3/Left", "18446744073709551615", TooLarge},
      {"/StrMap/42", "", ": must have 43 elements, not 42", "/StrMap"},
      {"/StrArrow", "{}", ": must be an array"},
      {"/StrArrow/80", "[]", ": must be an object"},
      {"/MapConnections/0/From", "43", ": must be between 0 and 42"},
      {"/MapConnections/0/Arrow", "-1", ": -1 means no connection"}};
  for (const Fault& fault : rows) ExpectRefused(SampleTables, fault);
}

TEST(Json, RefusesFaultyBtdFiles) {
  const Fault rows[] = {
      {"/MapIndex", "256", ": must be between 0 and 255"},
      {"/VictoryLocations/9", "", ": must have 10 elements, not 9", "/VictoryLocations"},
      {"/VictoryLocations/0/Kind", "5e1", NoNumber},
      {"/BaseName", "5", ": must be a string, or an object with the key Hex"},
      {"/BaseName", R"({"Hex": "4"})", "/Hex: must be pairs of hexadecimal digits"},
      {"/BaseName", R"({"Hex": 46})", "/Hex: must be a string"},
      {"/AlliedBrief", "\"text\"", ": must be an array of strings, or an object with the key Hex"},
      {"/AxisBrief", "[\"a\", 1]", "/1: must be a string"}};
  for (const Fault& fault : rows) ExpectRefused(SampleBtd, fault);
}

TEST(Json, RefusesWhatIsNotJsonOrTooLarge) {
  const std::string start = R"({"Format": "Corvane tables", )";
  const std::string deep = std::string(100000, '[');
  const std::pair<std::string, std::string> rows[] = {
      {"", "/: invalid JSON at line 1, column 1"},
      {"{\n  \"a\": 1,\n  b", "/a: invalid JSON at line 3, column 3"},
      {start + "\"StrMap\": [1, 2, }", "/StrMap/2: invalid JSON at line 1, column 47"},
      {start + "\"Format\": 1}", "/Format: duplicate key"},
      {"[]", "/: must be an object"},
      {std::string(SampleTables) + '\0' + "{", "/: invalid JSON at line 270, column 1"},
      {"\"\xFF\"", "/: invalid JSON at line 1, column 2"},
      {deep, "/0/0/0/0/0/0/0/0: nested too deeply"},
      {"{\"" + std::string(MaxJsonSize, ' ') + "\": 1}", "/: longer than 1048576 bytes"}};
  for (const auto& [text, reason] : rows) EXPECT_EQ(ReadBack(text), reason) << text.substr(0, 80);
}

TEST(Json, RefusesAConnectionGivenTwiceAndATextThatCannotBeStored) {
  Json twice = Json::parse(SampleTables);
  twice["MapConnections"].push_back(twice["MapConnections"][0]);
  EXPECT_EQ(ReadBack(twice.dump()), "/MapConnections/90: duplicate connection");
  const auto named = [](const std::string& name) {
    Json json = Json::parse(SampleBtd);
    json["BaseName"] = name;
    return ReadBack(json.dump());
  };
  EXPECT_EQ(named("123456789").substr(325, 9), "123456789");
  EXPECT_EQ(named("1234567890"), "/BaseName: has 10 bytes; the field holds 9");
  EXPECT_EQ(named("\u4E2D"),
            "/BaseName: contains a character that is not in the system's code page");
}
