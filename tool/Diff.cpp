#include <algorithm>

#include "tool/Commands.h"
#include "tool/Sources.h"
#include "tool/Text.h"

namespace corvane {
namespace {

// A patch or JSON file has no maps of its own. The maps of another game only supply names, so their
// files are not compared.
bool HasOwnMaps(const Source& source) { return source.Kind == SourceKind::GameExe; }

Lines AllDifferences(const Source& before, const Source& after) {
  if (before.IsBtd) return BtdDifferences(before.Btd, after.Btd);
  Lines lines = TableDifferences(before.Tables, after.Tables);
  if (HasOwnMaps(before) && HasOwnMaps(after)) {
    std::ranges::move(FileDifferences(before.Tables, after.Tables, before.Path, after.Path),
                      std::back_inserter(lines));
  }
  return lines;
}

}  // namespace

int Diff(const DiffOptions& options, const Console& console) {
  const auto before = ReadSource(options.Before, options.Game, MapsWanted::IfThere);
  if (!before.Done()) return Fail(console, before.Error());
  const auto after = ReadSource(options.After, options.Game, MapsWanted::IfThere);
  if (!after.Done()) return Fail(console, after.Error());
  if (before->IsBtd != after->IsBtd)
    return Fail(console, "A BTD file can only be compared with another BTD file.");
  const Lines lines = AllDifferences(*before, *after);
  for (const std::string& line : lines) console.Print(line + "\n");
  bool complete = true;
  for (const Source* source : {&*before, &*after}) {
    for (const std::string& fault : source->Faults) Report(console, fault);
    complete = complete && source->Faults.empty();
  }
  if (!complete) return StatusFailed;
  return lines.empty() ? StatusDone : StatusNegative;
}

}  // namespace corvane
