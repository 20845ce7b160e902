// The verbs, each a function that the command line calls with its options. All give back the exit
// status of the program.
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
/// Prints findings and warnings, one a line.
[[nodiscard]] int Check(const CheckOptions& options, const Console& console);

struct ShowOptions {
  std::string Source;
  std::string Game;
  bool Json = false;
};
/// Prints a listing, or the lossless form.
[[nodiscard]] int Show(const ShowOptions& options, const Console& console);

struct DiffOptions {
  std::string Before;
  std::string After;
  std::string Game;
};
/// Prints what differs, in words.
[[nodiscard]] int Diff(const DiffOptions& options, const Console& console);

struct CopyOptions {
  std::string From;
  std::string To;
  std::string Game;
  bool Unchecked = false;  // copies what the check would refuse
  bool DryRun = false;     // writes nothing
  bool Force = false;      // over an existing patch or JSON file
};
/// Puts tables or a BTD record into another file and prints what changes in it.
[[nodiscard]] int Copy(const CopyOptions& options, const Console& console);

}  // namespace corvane
