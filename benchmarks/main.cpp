#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <numeric>
#include <thread>

#include "Rows.h"
#include "data/GameFolder.h"
#include "data/MapCatalogue.h"
#include "data/TableImages.h"
#include "rules/ConsistencyCheck.h"
#include "samples/SampleGame.h"

namespace corvane {
namespace {

void Open(const std::string& folder) {
  Require(OpenTables(folder + "/CC4.EXE", "CC4.EXE").Done(), "the open");
  Require(LoadMapCatalogue().Failures.empty(), "the catalogue");
}

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
  Require(got == PatchFileSize + MapSlotCount * BtdHeadSize, "the bare open");
}

void BareSave(const std::string& exe) {
  ssize_t put = 0;
  const int file = ::open(exe.c_str(), O_WRONLY);
  for (const TablePlace& place : TablePlaces)
    put += ::pwrite(file, reinterpret_cast<const char*>(&Tables) + place.PatchOffset, place.Size,
                    static_cast<off_t>(place.GameOffset));
  Require(put == PatchFileSize && ::fsync(file) == 0 && ::close(file) == 0, "the bare save");
}

// Right behind another save a file's time would stay as it is, which spares a part of the flush.
double MicrosAlone(const std::function<void()>& save) {
  std::this_thread::sleep_for(std::chrono::milliseconds(12));
  return Micros(1, save);
}

void AddFileRows(const std::string& folder) {
  const std::string exe = folder + "/CC4.EXE", many = folder + "/Many";
  for (const std::string& game : {many, folder})
    Require(WriteSampleGame(game, MakeSampleGame()).Done(), "no sample game");
  Open(folder);
  std::vector<std::string> maps;
  for (const std::string& row : MapRows) maps.push_back(folder + "/Maps/" + RowFileName(row));
  for (int map = MapSlotCount; map < 10000; ++map)  // links will do: only 43 are opened
    std::filesystem::create_hard_link(maps[0], many + "/Maps/" + std::to_string(map) + ".btd");
  const Job open = [=] { return Micros(5, [&] { Open(folder); }); };
  const Job openMany = [=] { return Micros(5, [&] { Open(many); }); };
  const Job bareOpen = [=] { return Micros(5, [&] { BareOpen(exe, maps); }); };
  const Job save = [=] {
    return MicrosAlone([&] { Require(WriteGameTables(exe, Tables).Done(), "the save"); });
  };
  const Job bareSave = [=] { return MicrosAlone([&] { BareSave(exe); }); };
  AddRow("Open `CC4.EXE` with 43 maps (us)", open, "bare loop, same ranges", bareOpen, 1.3, 401);
  AddRow("The same with 10,000 files in `Maps` (us)", openMany, "the open with 43", open, 1.5, 401);
  AddRow("Save into `CC4.EXE` (us)", save, "bare open, write, flush, close", bareSave, 1.3, 101);
}

unsigned SumOf(const void* table, std::size_t size) {
  const auto* bytes = static_cast<const unsigned char*>(table);
  return std::accumulate(bytes, bytes + size, 0U);
}

// A finding for every exit, map slot and arrow slot.
void SpoilTables() {
  StrMap = {};
  StrArrow = {};
  VLDest = {};
  for (int cell = 0; cell < MapSlotCount * MapSlotCount; ++cell)
    MapConnections(cell % MapSlotCount, cell / MapSlotCount) = NoConnection;
}

void AddCheckRows(const std::string& folder) {
  SpoilTables();
  const std::string findings = CheckTables();
  Require(std::ranges::count(findings, '\n') == 554, "not 554 findings");
  Open(folder);
  Require(CheckTables().empty(), "the sample game is not sound");
  const auto check = [] { benchmark::DoNotOptimize(CheckTables()); };
  const auto passOver = [] {
    benchmark::DoNotOptimize(SumOf(&VLDest, sizeof VLDest) + SumOf(&Tables, sizeof Tables));
  };
  const auto checkAndAppend = [=] { benchmark::DoNotOptimize(CheckTables().append(findings)); };
  const auto on = [=](const std::function<void()>& prepare, const auto& work) {
    return [=] {
      prepare();
      work();
      return Micros(50, work);
    };
  };
  const auto sound = std::bind_front(Open, folder);
  AddRow("Check of a sound network (us)", on(sound, check), "one pass over the tables' bytes",
         on(sound, passOver), 5, 1001);
  AddRow("Check with 554 findings (us)", on(SpoilTables, check),
         "sound check, one append of that text", on(sound, checkAndAppend), 2, 1001);
}

enum Cost { Millis, PeakMiB, Printed };

// The peak is never below that of this process, which has no toolkit and is far smaller.
double CostOf(Cost cost, std::vector<const char*> words) {
  words.push_back(nullptr);
  int ends[2], status = -1;
  char printed[32] = {};
  struct rusage used {};
  Require(::pipe2(ends, O_CLOEXEC) == 0, "no pipe");
  const double micros = Micros(1, [&] {
    if (::fork() == 0) {
      ::dup2(ends[1], STDOUT_FILENO);
      ::execv(words[0], const_cast<char**>(words.data()));
      ::_exit(1);
    }
    ::close(ends[1]);
    static_cast<void>(!::read(ends[0], printed, sizeof printed - 1));
    ::wait4(-1, &status, 0, &used);
  });
  ::close(ends[0]);
  Require(status == 0 && (cost != Printed || std::atof(printed) > 0), words[0]);
  return std::array{micros / 1e3, static_cast<double>(used.ru_maxrss) / 1024,
                    std::atof(printed)}[cost];
}

void AddWindowRows(const std::string& folder) {
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  ::setenv("QT_LOGGING_RULES", "*=false", 1);
  static const std::string exe = folder + "/CC4.EXE";
  const auto job = [](Cost cost, const std::vector<const char*>& words) {
    return [=] { return CostOf(cost, words); };
  };
  AddRow("Select a map in the real window (us)",
         job(Printed, {PROGRAM_WINDOW, exe.c_str(), "select"}), "same calls, bare widgets",
         job(Printed, {BARE_WINDOW, "select"}), 1.5, 41);
  // The first text of a process loads the fonts of the system: that has to be told apart.
  const std::vector<const char*> program = {PROGRAM_WINDOW}, opened = {PROGRAM_WINDOW, exe.c_str()},
                                 empty = {BARE_WINDOW}, word = {BARE_WINDOW, "word"};
  AddRow("Process start to first window (ms)", job(Millis, program), "an empty window",
         job(Millis, empty), 1.1, 101);
  AddRow("The same (ms)", job(Millis, program), "a window with one word", job(Millis, word), 1.1,
         101);
  AddRow("Peak memory with a game open (MiB)", job(PeakMiB, opened), "the empty window",
         job(PeakMiB, empty), 1.1, 9);
  AddRow("The same (MiB)", job(PeakMiB, opened), "the window with one word", job(PeakMiB, word),
         1.1, 9);
}

struct Silent : benchmark::BenchmarkReporter {  // the rows print themselves
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>&) override {}
};

}  // namespace
}  // namespace corvane

int main(int count, char** words) {
  benchmark::Initialize(&count, words);
  static std::string folder = (std::filesystem::temp_directory_path() / "corvane-XXXXXX").string();
  corvane::Require(::mkdtemp(folder.data()) != nullptr, "no folder for the sample game");
  std::atexit([] { std::filesystem::remove_all(folder); });
  corvane::AddFileRows(folder);
  corvane::AddCheckRows(folder);
  corvane::AddWindowRows(folder);
  std::puts("| What | Cost | Floor | Cost | Ratio | At most | |\n|---|--:|---|--:|--:|--:|---|");
  corvane::Silent reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
}
