#include <algorithm>

#include "tool/Commands.h"
#include "tool/Printable.h"
#include "tool/Sources.h"
#include "tool/Warnings.h"

namespace corvane {
namespace {

void PrintMark(const Mark& mark, const std::string& prefix, const Console& console) {
  constexpr const char* Red = "\x1B[31m";
  constexpr const char* Yellow = "\x1B[33m";
  const bool warns = mark.Kind == MarkKind::Warning;
  std::string line = prefix + (warns ? "warning: " : "") + Printable(mark.Text);
  if (console.Colour) line = (warns ? Yellow : Red) + line + "\x1B[0m";
  console.Print(line + "\n");
}

int CheckSource(const std::string& path, const CheckOptions& options, const Console& console) {
  const auto source = ReadSource(path, options.Game, MapsWanted::Yes);
  if (!source.Done()) return Fail(console, source.Error());
  Marks marks;
  if (!source->IsBtd) marks = FindingMarks();
  std::ranges::move(source->IsBtd ? WarningsOf(source->Btd) : WarningsOf(source->Tables),
                    std::back_inserter(marks));
  const std::string prefix = options.Sources.size() > 1 ? Printable(path) + ": " : "";
  for (const Mark& mark : marks) PrintMark(mark, prefix, console);
  for (const std::string& fault : source->Faults) Report(console, fault);
  if (!source->Faults.empty()) return StatusFailed;
  const auto counts = [&](const Mark& mark) {
    return mark.Kind == MarkKind::Finding || options.Strict;
  };
  return std::ranges::any_of(marks, counts) ? StatusNegative : StatusDone;
}

}  // namespace

int Check(const CheckOptions& options, const Console& console) {
  int status = StatusDone;
  for (const std::string& path : options.Sources)
    status = std::max(status, CheckSource(path, options, console));
  return status;
}

}  // namespace corvane
