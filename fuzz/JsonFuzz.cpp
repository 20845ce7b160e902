// The input is a JSON document, and also a patch file and a BTD file.
#include <algorithm>
#include <cstring>

#include "../tests/tool/SampleLayer.h"
#include "Fuzz.h"
#include "tool/Json.h"
#include "tool/Text.h"

namespace {

using namespace corvane;

std::string ToJson(const JsonDocument& document) {
  return document.IsBtd ? BtdToJson(document.Btd) : TablesToJson(document.Tables);
}

void RequireRoundTrip(const std::string& json) {
  const auto read = ParseJson(json);
  Require(read.Done(), "written JSON can be read");
  Require(ToJson(*read) == json, "reading and writing gives the same JSON");
}

// Cells beyond the input hold no connection, which keeps the document short.
Layer LayerFrom(const std::string& input) {
  GameTables tables;
  std::memset(static_cast<void*>(&tables), 0xFF, sizeof tables);
  std::memcpy(static_cast<void*>(&tables), input.data(), std::min(input.size(), sizeof tables));
  Layer layer;
  PutTables(layer, tables);
  return layer;
}

void RequireHarmless(const std::string& listing) {
  const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\n'; };
  Require(std::ranges::none_of(listing, isControl), "a listing contains no control characters");
}

}  // namespace

void corvane::Run(const TestFolder& folder, const std::string& input) {
  const auto read = ParseJson(input);
  Require(read.Done() || read.Error().starts_with('/'), "an error names its position");
  if (read.Done()) RequireRoundTrip(ToJson(*read));
  const Layer layer = LayerFrom(input);
  folder.Put("a.btd", input);
  const Result<BtdFile> map = ReadBtd(folder / "a.btd");
  Require(map.Done(), "any file can be read");
  const MapFile file = MakeMapFile(input.substr(0, 12), *map);
  RequireRoundTrip(TablesToJson(layer));
  RequireRoundTrip(BtdToJson(file));
  RequireHarmless(ListTables(layer));
  RequireHarmless(ListBtd(file));
  const std::string image = ZeroExtended(input, BtdSize).substr(0, BtdSize);
  Require(EncodeMapFile(ParseJson(BtdToJson(file))->Btd) == image, "every byte survives");
}
