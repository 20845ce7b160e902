// The commands. The command line calls each with its options; each returns the program's exit
// status.
#pragma once

#include <string>
#include <vector>

#include "tool/Console.h"

namespace corvane {

struct CheckOptions {
  std::vector<std::string> Sources;
  std::string Game;     // folder; empty for the installed game
  bool Strict = false;  // warnings count as findings
};
/// Prints findings and warnings, one per line.
[[nodiscard]] int Check(const CheckOptions& options, const Console& console);

struct ShowOptions {
  std::string Source;
  std::string Game;
  bool Json = false;
};
/// Prints a listing or the lossless JSON form.
[[nodiscard]] int Show(const ShowOptions& options, const Console& console);

struct DiffOptions {
  std::string Before;
  std::string After;
  std::string Game;
};
/// Prints the differences.
[[nodiscard]] int Diff(const DiffOptions& options, const Console& console);

struct CopyOptions {
  std::string From;
  std::string To;
  std::string Game;
  bool Unchecked = false;  // copies even if the check refuses
  bool DryRun = false;     // writes nothing
  bool Force = false;      // replaces an existing patch or JSON file
};
/// Copies tables or a BTD record to another file and prints what changes in that file.
[[nodiscard]] int Copy(const CopyOptions& options, const Console& console);

}  // namespace corvane
