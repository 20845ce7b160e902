// corvane-sample FOLDER: writes the sample game to a folder. Never overwrites a game.
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>

#include "base/FolderScan.h"
#include "samples/SampleGame.h"

namespace {

int Fail(const std::string& reason) {
  std::cerr << "corvane-sample: " << reason << "\n";
  return 1;
}

bool Has(const std::filesystem::path& folder, const std::string& name) {
  std::error_code ignored;
  const std::string found = corvane::NameInFolder(folder.string(), name);
  return std::filesystem::exists(std::filesystem::symlink_status(folder / found, ignored));
}

}  // namespace

int main(int argc, char** argv) {
  constexpr std::string_view Usage = "usage: corvane-sample FOLDER";
  const std::string_view argument = argc == 2 ? argv[1] : "";
  if (argument == "--help") {
    std::cout << Usage << "\nWrites a sample CC4.EXE and its Maps to FOLDER.\n";
    return 0;
  }
  if (argument.empty() || argument.starts_with('-')) return Fail(std::string(Usage));
  const std::filesystem::path folder = argument;
  for (const char* name : {"CC4.EXE", "Maps"}) {
    if (Has(folder, name)) return Fail(folder.string() + " already contains " + name + ".");
  }
  const corvane::SampleGame game = corvane::MakeSampleGame();
  const auto written = corvane::WriteSampleGame(folder, game);
  if (!written.Done()) return Fail(FailureMessage(written.Error()));
  std::cout << "Wrote CC4.EXE and " << game.Maps.size() << " map files in Maps to "
            << folder.string() << ".\n";
  return 0;
}
