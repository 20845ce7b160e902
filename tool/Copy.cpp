#include <filesystem>
#include <optional>
#include <span>

#include "Paths.h"
#include "base/FileRanges.h"
#include "base/FolderScan.h"
#include "data/TableImages.h"
#include "tool/Commands.h"
#include "tool/Json.h"
#include "tool/Printable.h"
#include "tool/Sources.h"
#include "tool/Text.h"
#include "tool/Warnings.h"
#include "tool/WholeFile.h"

namespace corvane {
namespace {

struct Target {
  std::string Path;
  SourceKind Kind = SourceKind::Other;
  bool Exists = false;
};

// Why the kinds of the two files do not match; empty if they do.
std::string Mismatch(const Source& from, const Target& to) {
  if (to.Kind == SourceKind::Other) return NotASource(to.Path);
  if (to.Kind == SourceKind::Json || from.IsBtd == (to.Kind == SourceKind::Btd)) return {};
  return from.IsBtd ? from.Path + " is a BTD file and has no tables for " + to.Path + "."
                    : from.Path + " has tables but no BTD record for " + to.Path + ".";
}

// The game folder with the maps to check against: as given or, by default, that of a CC4.EXE
// target.
std::string GameToCheck(const CopyOptions& options, const Target& to) {
  if (options.Game.empty() && to.Kind == SourceKind::GameExe) return FolderOf(to.Path);
  return options.Game;
}

// The exit status if the copy is refused; empty if it may continue.
std::optional<int> Refusal(const CopyOptions& options, const Target& to, const Console& console) {
  const auto checked = ReadSource(options.From, GameToCheck(options, to), MapsWanted::Yes);
  if (!checked.Done()) return Fail(console, checked.Error());
  for (const std::string& fault : checked->Faults) Report(console, fault);
  if (!checked->Faults.empty()) return StatusFailed;
  if (checked->IsBtd) return std::nullopt;
  const Marks findings = FindingMarks();
  for (const Mark& finding : findings) Report(console, finding.Text);
  if (findings.empty()) return std::nullopt;
  Report(console, "Nothing was copied: the tables do not pass the check.");
  return StatusNegative;
}

bool NeedsForce(const Target& to) {
  return to.Exists && (to.Kind == SourceKind::Patch || to.Kind == SourceKind::Json);
}

void PrintChanges(const Source& from, const Target& to, const std::optional<Source>& old,
                  const Console& console) {
  const std::string name = Printable(to.Path);
  if (!to.Exists) return console.Print(name + ": new file\n");
  if (!old || old->IsBtd != from.IsBtd) return console.Print(name + ": replaced\n");
  const Lines lines =
      from.IsBtd ? BtdDifferences(old->Btd, from.Btd) : TableDifferences(old->Tables, from.Tables);
  for (const std::string& line : lines) console.Print(line + "\n");
  if (lines.empty()) console.Print(name + ": no change\n");
}

// Saves, unless the target has changed since the changes were printed.
Result<> Save(const Source& from, const Target& to, const std::optional<Source>& old) {
  if (to.Kind == SourceKind::Btd) {
    const std::string image = EncodeMapFile(from.Btd);
    const std::string known = old ? EncodeMapFile(old->Btd) : std::string();
    const WriteRange whole{0, std::as_bytes(std::span(image)), std::as_bytes(std::span(known))};
    return SaveInPlace(to.Path, {&whole, 1}, IfMissing::Create);
  }
  const GameTables tables = TablesOf(from.Tables);
  const std::optional<GameTables> known = old ? std::optional(TablesOf(old->Tables)) : std::nullopt;
  const auto write = to.Kind == SourceKind::GameExe ? WriteGameTables : WritePatchTables;
  return write(to.Path, tables, known ? &*known : nullptr);
}

int Write(const Source& from, const Target& to, const std::optional<Source>& old,
          const Console& console) {
  if (to.Kind == SourceKind::Json) {
    const auto written =
        WriteWhole(to.Path, from.IsBtd ? BtdToJson(from.Btd) : TablesToJson(from.Tables));
    return written.Done() ? StatusDone : Fail(console, written.Error());
  }
  const Result<> saved = Save(from, to, old);
  if (saved.Done()) return StatusDone;
  Report(console, FailureMessage(saved.Error()));
  return saved.Error().Reason == FileError::ChangedByAnother ? StatusNegative : StatusFailed;
}

// True also for a folder, a pipe or a broken link.
bool PathExists(const std::string& path) {
  std::error_code error;
  const auto type = std::filesystem::symlink_status(ToSystemPath(path), error).type();
  return type != std::filesystem::file_type::not_found;
}

// The old contents of the target; empty if it does not exist. A JSON file that is not a document
// counts as missing, so that it can be replaced.
Result<std::optional<Source>, std::string> ReadTarget(const Target& to) {
  using Read = Result<std::optional<Source>, std::string>;
  const bool absent = !to.Exists && !PathExists(to.Path);
  if (absent && to.Kind != SourceKind::GameExe) return Read(std::nullopt);
  auto source = ReadSource(to.Path, {}, MapsWanted::No);
  if (source.Done()) return Read(std::move(*source));
  if (to.Kind == SourceKind::Json && to.Exists) return Read(std::nullopt);
  return source.Error();
}

}  // namespace

int Copy(const CopyOptions& options, const Console& console) {
  const auto from = ReadSource(options.From, {}, MapsWanted::No);
  if (!from.Done()) return Fail(console, from.Error());
  const Target to{options.To, KindOfSource(options.To), OrdinaryFileExists(options.To)};
  if (const std::string mismatch = Mismatch(*from, to); !mismatch.empty())
    return Fail(console, mismatch);
  if (NeedsForce(to) && !options.Force) {
    Report(console, to.Path + " already exists. Use --force to replace it.");
    return StatusNegative;
  }
  if (!options.Unchecked) {
    if (const std::optional<int> refused = Refusal(options, to, console)) return *refused;
  }
  const auto old = ReadTarget(to);
  if (!old.Done()) return Fail(console, old.Error());
  PrintChanges(*from, to, *old, console);
  if (options.DryRun) return StatusDone;
  return Write(*from, to, *old, console);
}

}  // namespace corvane
