#include "data/GameFolder.h"

#include <utility>

#include "base/LetterCase.h"
#include "base/Registry.h"
#include "data/StrategicTables.h"
#include "data/TableImages.h"

namespace corvane {
namespace {

std::string FolderOf(const std::string& fileName, const std::string& fileTitle) {
  return fileName.substr(0, fileName.size() - fileTitle.size());
}

}  // namespace

FileKind KindOfFile(std::string_view fileTitle) {
  const std::string title = ToUpper(fileTitle);
  if (title == GameExeName) return FileKind::GameExeFile;
  return title.ends_with(".CRV") ? FileKind::PatchFile : FileKind::OtherFile;
}

std::optional<std::string> ReadInstallPath() {
  return ReadRegistryFolder(InstallKey, InstallValue, InstallValueLimit);
}

Result<FileKind> OpenTables(const std::string& fileName, const std::string& fileTitle) {
  const FileKind kind = KindOfFile(fileTitle);
  if (kind == FileKind::OtherFile) return kind;
  const bool patch = kind == FileKind::PatchFile;
  const auto folder = patch ? ReadInstallPath() : FolderOf(fileName, fileTitle);
  if (!folder) return FileKind::NoInstallPath;
  const auto tables = patch ? ReadPatchTables(fileName) : ReadGameTables(fileName);
  if (!tables.Done()) return tables.Error();
  Tables = *tables;
  GamePath = *folder;
  OpenedFile = fileTitle;
  return kind;
}

}  // namespace corvane
