#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <thread>

#include "Groups.h"
#include "Rows.h"
#include "data/MapCatalogue.h"
#include "data/TableImages.h"
#include "samples/SampleGame.h"

namespace corvane {
namespace {

void BareOpen(const std::string& exe, const std::vector<std::string>& maps) {
  char bytes[PatchFileSize];
  ssize_t got = 0;
  int file = ::open(exe.c_str(), O_RDONLY);
  for (const TablePlace& place : TablePlaces)
    got += ::pread(file, bytes, place.Size, static_cast<off_t>(place.GameOffset));
  ::close(file);
  for (const std::string& map : maps) {
    file = ::open(map.c_str(), O_RDONLY);
    got += ::pread(file, bytes, BtdHeadSize, 0);
    ::close(file);
  }
  Require(got == PatchFileSize + MapSlotCount * BtdHeadSize, "reading the ranges");
}

void BareSave(const std::string& exe) {
  ssize_t put = 0;
  const int file = ::open(exe.c_str(), O_WRONLY);
  for (const TablePlace& place : TablePlaces)
    put += ::pwrite(file, reinterpret_cast<const char*>(&Tables) + place.PatchOffset, place.Size,
                    static_cast<off_t>(place.GameOffset));
  Require(put == PatchFileSize && ::fsync(file) == 0 && ::close(file) == 0, "writing the ranges");
}

// A save right after another does not change the file's time, which makes its flush cheaper.
double MicrosAfterPause(const std::function<void()>& save) {
  std::this_thread::sleep_for(std::chrono::milliseconds(12));
  return Micros(1, save);
}

}  // namespace

void AddFileRows(const std::string& folder) {
  const std::string exe = folder + "/CC4.EXE", many = folder + "/Many";
  Require(WriteSampleGame(many, MakeSampleGame()).Done(), "writing the sample game");
  Open(folder);
  std::vector<std::string> maps;
  for (const std::string& row : MapRows) maps.push_back(folder + "/Maps/" + RowFileName(row));
  for (int map = MapSlotCount; map < 10000; ++map)  // links suffice: only 43 are opened
    std::filesystem::create_hard_link(maps[0], many + "/Maps/" + std::to_string(map) + ".btd");
  const Job open = [=] { return Micros(5, [&] { Open(folder); }); };
  const Job openMany = [=] { return Micros(5, [&] { Open(many); }); };
  const Job bareOpen = [=] { return Micros(5, [&] { BareOpen(exe, maps); }); };
  const Job save = [=] {
    return MicrosAfterPause([&] { Require(WriteGameTables(exe, Tables).Done(), "the save"); });
  };
  const Job bareSave = [=] { return MicrosAfterPause([&] { BareSave(exe); }); };
  AddRow("Open `CC4.EXE` with 43 maps (us)", open, "a loop that reads the same ranges", bareOpen,
         1.3, 401);
  AddRow("Open `CC4.EXE` with 10,000 files in `Maps` (us)", openMany, "the same with 43 maps", open,
         1.5, 401);
  AddRow("Save into `CC4.EXE` (us)", save, "open, write, flush and close alone", bareSave, 1.3,
         101);
}

}  // namespace corvane
