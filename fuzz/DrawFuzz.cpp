// The input is a patch file followed by a BTD file, and also the source of names. For any input,
// the page that compares its tables with the sample's is well-formed.
#include <expat.h>

#include "../tests/tool/SampleLayer.h"
#include "Fuzz.h"
#include "tool/Picture.h"
#include "tool/Warnings.h"

namespace {

using namespace corvane;

const Layer& SampleOnce() {
  static const Layer sample = LayerOf(MakeSampleGame());
  return sample;
}

Layer LayerFrom(const TestFolder& folder, const std::string& input) {
  folder.Put("p.crv", input);
  folder.Put("a.btd", input.substr(std::min<std::size_t>(input.size(), PatchFileSize)));
  Layer layer = SampleOnce();
  const Result<GameTables> tables = ReadPatchTables(folder / "p.crv");
  const Result<BtdFile> map = ReadBtd(folder / "a.btd");
  Require(tables.Done() && map.Done(), "any file can be read");
  PutTables(layer, *tables);
  const std::size_t row = map->Header.MapIndex % layer.Rows.size();
  layer.Rows[row] = "000 " + input.substr(input.size() - std::min<std::size_t>(input.size(), 40));
  layer.Files[row] = MakeMapFile(input.substr(0, 20), *map);
  for (int vl = 0; vl < VLSlotCount; ++vl) {
    layer.Destinations(map->Header.MapIndex, vl) =
        map->VLs[static_cast<std::size_t>(vl)].Destination;
  }
  return layer;
}

bool IsWellFormed(std::string page) {
  const std::size_t script = page.find("<script");  // its text is not markup
  page.erase(script, page.find("</script>") + 9 - script);
  const XML_Parser parser = XML_ParserCreate("UTF-8");
  const XML_Status status = XML_Parse(parser, page.data(), static_cast<int>(page.size()), 1);
  XML_ParserFree(parser);
  return status == XML_STATUS_OK;
}

}  // namespace

void corvane::Run(const TestFolder& folder, const std::string& input) {
  const Layer layer = LayerFrom(folder, input);
  Tables = TablesOf(layer);
  VLDest = layer.Destinations;
  MapRows = layer.Rows;
  Picture picture{input.substr(0, 30), &layer, &SampleOnce(), input.substr(0, 9), FindingMarks()};
  for (const Mark& mark : WarningsOf(layer)) picture.Found.push_back(mark);
  if (picture.Found.size() > 200) picture.Found.resize(200);  // more repeat the same kinds
  Require(IsWellFormed(DrawPage(picture, Reload::Never)), "a page is well-formed");
}
