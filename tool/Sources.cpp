#include "tool/Sources.h"

#include <algorithm>
#include <optional>
#include <span>

#include "Paths.h"
#include "base/FileRanges.h"
#include "base/FolderScan.h"
#include "base/LetterCase.h"
#include "base/RawFile.h"
#include "data/GameFolder.h"
#include "data/MapCatalogue.h"
#include "data/TableImages.h"
#include "tool/Json.h"

namespace corvane {
namespace {

constexpr char NoGame[] =
    "The game is not installed on this machine, so its maps are unknown. Name its folder with "
    "--game.";

// The message of a failure; empty on success.
template <class Value>
std::string Reason(const Result<Value>& result) {
  return result.Done() ? std::string() : FailureMessage(result.Error());
}

// Resets the tables and the catalogue to their state at program start.
void ResetTables() {
  Tables = {};
  VLDest = {};
  GamePath.clear();
  OpenedFile.clear();
  MapRows.clear();
}

std::string SetTables(const Result<GameTables>& read) {
  if (read.Done()) Tables = *read;
  return Reason(read);
}

std::string ReadJsonText(const std::string& path, std::string& text) {
  text.resize(static_cast<std::size_t>(std::min<std::uint64_t>(FileLength(path), MaxJsonSize + 1)));
  const ReadRange whole{0, std::as_writable_bytes(std::span(text))};
  return Reason(ReadRanges(path, {&whole, 1}));
}

std::string ReadJsonFile(Source& source) {
  std::string text;
  if (std::string failure = ReadJsonText(source.Path, text); !failure.empty()) return failure;
  Result<JsonDocument, std::string> document = ParseJson(text);
  if (!document.Done()) return source.Path + " could not be read: " + document.Error() + ".";
  source.IsBtd = document->IsBtd;
  source.Btd = document->Btd;
  Tables = TablesOf(document->Tables);
  return {};
}

std::string ReadBtdSource(Source& source) {
  const Result<BtdFile> read = ReadBtd(source.Path);
  source.IsBtd = true;
  if (read.Done()) source.Btd = MakeMapFile(std::string(FileTitle(source.Path)), *read);
  return Reason(read);
}

std::string ReadContents(Source& source) {
  switch (source.Kind) {
    case SourceKind::GameExe:
      return SetTables(ReadGameTables(source.Path));
    case SourceKind::Patch:
      return SetTables(ReadPatchTables(source.Path));
    case SourceKind::Json:
      return ReadJsonFile(source);
    case SourceKind::Btd:
      return ReadBtdSource(source);
    case SourceKind::Other:
      break;
  }
  return NotASource(source.Path);
}

// The folder of the maps that belong to a source.
std::optional<std::string> GameFolderOf(const Source& source, const std::string& game) {
  if (game.empty() && source.Kind != SourceKind::GameExe) return ReadInstallPath();
  std::string folder = game.empty() ? FolderOf(source.Path) : game;
  // A separator is appended to form paths, which appear in messages.
  if (folder.size() > 1 && (folder.back() == Separator || folder.back() == '/')) folder.pop_back();
  return folder;
}

// Reads a complete map file and returns its head for the catalogue.
Result<BtdHead> ReadMapFile(const std::string& path, std::vector<MapFile>& files) {
  const Result<BtdFile> read = ReadBtd(path);
  if (!read.Done()) return read.Error();
  files.push_back(MakeMapFile(std::string(FileTitle(path)), *read));
  return BtdHead{read->Header, read->VLs};
}

std::vector<MapFile> ReadMaps(Source& source, const std::string& folder) {
  std::vector<MapFile> files;
  files.reserve(MapSlotCount);
  GamePath = folder;
  const CatalogueReport report =
      LoadMapCatalogue([&](const std::string& path) { return ReadMapFile(path, files); });
  source.HasMaps = report.FoundFiles;
  source.MapsFolder = report.Folder;
  for (const Failure& failure : report.Failures) {
    if (source.HasMaps || failure.Reason != std::errc::no_such_file_or_directory)
      source.Faults.push_back(FailureMessage(failure));
  }
  return files;
}

std::string WhyNoMaps(const Source& source) {
  if (!source.Faults.empty()) return source.Faults.front();
  return "No map files were found in the folder " + source.MapsFolder + ".";
}

}  // namespace

SourceKind KindOfSource(std::string_view path) {
  const std::string title = ToUpper(FileTitle(path));
  switch (KindOfFile(title)) {
    case FileKind::GameExeFile:
      return SourceKind::GameExe;
    case FileKind::PatchFile:
      return SourceKind::Patch;
    default:
      break;
  }
  if (title.ends_with(".JSON")) return SourceKind::Json;
  return title.ends_with(".BTD") ? SourceKind::Btd : SourceKind::Other;
}

std::string NotASource(const std::string& path) {
  return path + " is not a CC4.EXE, patch file (.crv), BTD file (.btd) or JSON file (.json).";
}

std::string SourceFault(const std::string& path) {
  if (KindOfSource(path) == SourceKind::Other) return NotASource(path);
  RawFile file;
  FileStatus status;
  std::error_code error = file.Open(path, OpenMode::Read);
  if (!error) error = file.Status(status);
  if (!error && status.Type == FileType::Folder)
    error = std::make_error_code(std::errc::is_a_directory);
  return error ? FailureMessage({FileAction::Read, path, error}) : std::string();
}

Result<Source, std::string> ReadSource(const std::string& path, const std::string& game,
                                       MapsWanted maps) {
  Source source{.Path = path, .Kind = KindOfSource(path)};
  ResetTables();
  if (std::string failure = ReadContents(source); !failure.empty()) return failure;
  if (source.IsBtd) return source;
  std::vector<MapFile> files;
  if (maps != MapsWanted::No) {
    const std::optional<std::string> folder = GameFolderOf(source, game);
    if (folder) files = ReadMaps(source, *folder);
    if (maps == MapsWanted::Yes && !folder) return std::string(NoGame);
    if (maps == MapsWanted::Yes && !source.HasMaps) return WhyNoMaps(source);
  }
  source.Tables = CaptureLayer(std::move(files));
  return source;
}

}  // namespace corvane
