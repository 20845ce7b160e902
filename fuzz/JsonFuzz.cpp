// The input is a JSON document, and also the bytes of a patch file and of a BTD file.
#include <algorithm>
#include <cstring>

#include "Fuzz.h"
#include "tool/Json.h"
#include "tool/Text.h"

namespace {

using namespace corvane;

std::string Spell(const JsonDocument& document) {
  return document.IsBtd ? BtdToJson(document.Btd) : TablesToJson(document.Tables);
}

void RequireFaithful(const std::string& json) {
  const auto read = ParseJson(json);
  Require(read.Done(), "what was written can be read");
  Require(Spell(*read) == json, "what was read is written alike");
}

// What the input does not reach is no connection, which keeps the document short.
Layer LayerOf(const std::string& input) {
  GameTables tables;
  std::memset(static_cast<void*>(&tables), 0xFF, sizeof tables);
  std::memcpy(static_cast<void*>(&tables), input.data(), std::min(input.size(), sizeof tables));
  Layer layer;
  layer.Tiles = tables.Tiles;
  layer.Arrows = tables.Arrows;
  layer.Connections = tables.Connections;
  layer.Hotspots = tables.Hotspots;
  return layer;
}

void RequireHarmless(const std::string& listing) {
  const auto steers = [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\n'; };
  Require(std::ranges::none_of(listing, steers), "nothing in a listing steers a terminal");
}

}  // namespace

void corvane::Run(const TestFolder& folder, const std::string& input) {
  const auto read = ParseJson(input);
  Require(read.Done() || read.Error().starts_with('/'), "a fault is told with its place");
  if (read.Done()) RequireFaithful(Spell(*read));
  const Layer layer = LayerOf(input);
  folder.Put("a.btd", input);
  const Result<BtdFile> map = ReadBtd(folder / "a.btd");
  Require(map.Done(), "any file can be read");
  const MapFile file{input.substr(0, 12), input.size(), map->Header, map->VLs, map->Text};
  RequireFaithful(TablesToJson(layer));
  RequireFaithful(BtdToJson(file));
  RequireHarmless(ListTables(layer));
  RequireHarmless(ListBtd(file));
  const std::string image = Reached(input, BtdSize).substr(0, BtdSize);
  Require(BtdImage(ParseJson(BtdToJson(file))->Btd) == image, "every byte comes back");
}
