#include "data/GameFolder.h"

#include <optional>
#include <utility>

#include "base/InstallRegistry.h"
#include "base/LetterCase.h"
#include "data/StrategicTables.h"
#include "data/TableImages.h"

namespace corvane {
namespace {

FileResult OpenGameExe(const std::string& fileName, const std::string& fileTitle) {
  GamePath = fileName.substr(0, fileName.size() - fileTitle.size());
  OpenedFile = fileTitle;
  return ReadGameTables();
}

FileResult OpenPatch(const std::string& fileName, const std::string& fileTitle) {
  OpenedFile = fileTitle;
  return ReadPatchTables(fileName);
}

}  // namespace

FileKind KindOfFile(std::string_view fileTitle) {
  const std::string title = InCapitals(fileTitle);
  if (title == GameExeName) return FileKind::GameExeFile;
  return title.ends_with(".CRV") ? FileKind::PatchFile : FileKind::OtherFile;
}

bool ReadInstallPath() {
  std::optional<std::string> folder = ReadInstalledTo();
  if (!folder) return false;
  GamePath = std::move(*folder);
  return true;
}

OpenOutcome OpenTables(const std::string& fileName, const std::string& fileTitle) {
  const FileKind kind = KindOfFile(fileTitle);
  if (kind == FileKind::OtherFile) return {kind, {}};
  const std::string oldPath = GamePath;
  const std::string oldFile = OpenedFile;
  if (kind == FileKind::PatchFile && !ReadInstallPath()) return {FileKind::NoInstallPath, {}};
  FileResult read = kind == FileKind::PatchFile ? OpenPatch(fileName, fileTitle)
                                                : OpenGameExe(fileName, fileTitle);
  if (!read.Done()) {
    GamePath = oldPath;
    OpenedFile = oldFile;
  }
  return {kind, std::move(read)};
}

}  // namespace corvane
