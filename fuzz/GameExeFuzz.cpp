// The input stands at the places of the tables in a CC4.EXE.
#include "Fuzz.h"

void corvane::Run(const TestFolder& folder, const std::string& input) {
  static std::string exe = GameExeBytes({});
  const std::string images = Reached(input, PatchFileSize);
  std::size_t next = 0;
  for (const auto& [table, size, place] : TablePlaces)
    exe.replace(place, size, images, std::exchange(next, next + size), size);
  GamePath = folder / "";
  folder.Put("CC4.EXE", exe);
  Require(ReadGameTables().Done() && WriteGameTables().Done(),
          "any CC4.EXE can be read, and saved");
  Require(folder.Get("CC4.EXE") == exe, "it comes back as it was read");
}
