// The input is the only BTD file in its folder.
#include "Fuzz.h"
#include "data/MapCatalogue.h"

void corvane::Run(const TestFolder& folder, const std::string& input) {
  GamePath = folder / "";
  folder.Put("Maps/a.btd", input);
  const std::string path = BtdPath("A.BTD", "");
  const auto map = ReadBtd(path);
  Require(map.Done(), "any BTD file can be read");
  Require(LoadMapCatalogue().Failures.empty(), "the file is listed");
  Require(RowMapIndex(MapRow(0)) == map->Header.MapIndex, "its row shows its map number");
  Require(WriteBtd(path, map->Header.MapIndex, map->VLs, map->Text).Done(),
          "the file can be written");
  const std::string wanted = ZeroExtended(input, BtdSize).replace(0, 4, "\x36\x07\x31\x01");
  Require(folder.Get("Maps/a.btd") == wanted, "only the magic number changes");
}
