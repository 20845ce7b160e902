// Prints the table. Given the folder of the Windows programs, it measures those under Wine.
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "Groups.h"
#include "Rows.h"
#include "data/GameFolder.h"
#include "data/MapCatalogue.h"
#include "samples/SampleGame.h"

namespace corvane {
namespace {

struct Silent : benchmark::BenchmarkReporter {  // the rows print themselves
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>&) override {}
};

}  // namespace

void Open(const std::string& folder) {
  Require(OpenTables(folder + "/CC4.EXE", "CC4.EXE").Done(), "opening the game");
  Require(LoadMapCatalogue().Failures.empty(), "loading the catalogue");
}

}  // namespace corvane

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  static std::string folder = (std::filesystem::temp_directory_path() / "corvane-XXXXXX").string();
  corvane::Require(::mkdtemp(folder.data()) != nullptr, "creating a folder");
  std::atexit([] { std::filesystem::remove_all(folder); });
  corvane::Require(corvane::WriteSampleGame(folder, corvane::MakeSampleGame()).Done(),
                   "writing the sample game");
  if (argc > 1) {
    corvane::AddWindowsRows(folder, argv[1]);
  } else {
    corvane::AddFileRows(folder);
    corvane::AddCheckRows(folder);
    corvane::AddWindowRows(folder);
    corvane::AddToolRows(folder);
  }
  std::puts(
      "| Job | Cost | Floor | Cost | Ratio | Limit | Result |\n|---|--:|---|--:|--:|--:|---|");
  corvane::Silent reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
}
