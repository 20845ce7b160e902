// The input is a patch file. Its numbers serve as indices, most of them out of range.
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
  Require(CheckTables() == CheckTables(), "the check is repeatable");
  Require(WritePatchTables(folder / "p.crv", Tables).Done(), "a patch file can be written");
  Require(folder.Get("p.crv") == ZeroExtended(input, PatchFileSize),
          "a save of unchanged tables changes nothing");
}
