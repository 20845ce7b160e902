// The input is a patch file. The numbers in it are used as indices, most of them wild.
#include "Fuzz.h"

void corvane::Run(const TestFolder& folder, const std::string& input) {
  folder.Put("p.crv", input);
  const auto tables = ReadPatchTables(folder / "p.crv");
  Require(tables.Done(), "any patch file can be read");
  Tables = *tables;
  for (int cell = 0; cell < MapSlotCount * MapSlotCount; ++cell) {
    const int wild = MapConnections(cell / MapSlotCount, cell % MapSlotCount);
    VLDest(cell % MapSlotCount, cell % VLSlotCount) = wild;
    if (IsMapSlot(wild)) continue;
    MapConnections(wild, 0) = MapConnections(0, wild) = VLDest(wild, 0) = StrMap[wild].Left = 5;
  }
  Require(CheckTables() == CheckTables(), "what is found is found again");
  Require(WritePatchTables(folder / "p.crv", Tables).Done(), "a patch file can be written");
  Require(folder.Get("p.crv") == Reached(input, PatchFileSize), "it comes back as it was read");
}
