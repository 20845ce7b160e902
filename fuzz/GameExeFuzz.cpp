// The input replaces the tables in a CC4.EXE.
#include "Fuzz.h"

void corvane::Run(const TestFolder& folder, const std::string& input) {
  static std::string exe = GameExeBytes({});
  const std::string images = ZeroExtended(input, PatchFileSize);
  for (const TablePlace& place : TablePlaces)
    exe.replace(place.GameOffset, place.Size, images, place.PatchOffset, place.Size);
  folder.Put("CC4.EXE", exe);
  const auto tables = ReadGameTables(folder / "CC4.EXE");
  Require(tables.Done(), "any CC4.EXE can be read");
  Require(WriteGameTables(folder / "CC4.EXE", *tables).Done(), "any CC4.EXE can be saved");
  Require(folder.Get("CC4.EXE") == exe, "a save of unchanged tables changes nothing");
}
