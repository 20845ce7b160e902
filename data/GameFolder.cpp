#include "data/GameFolder.h"

#include <algorithm>
#include <vector>

#include "base/LetterCase.h"
#include "base/RawFile.h"
#include "base/Registry.h"
#include "data/StrategicTables.h"
#include "data/TableImages.h"

namespace corvane {
namespace {

// The tables of a file as this program last read or wrote them.
struct SeenFile {
  std::string Path;
  GameTables Tables;
};
std::vector<SeenFile> SeenFiles;

// Compares the paths first, which needs no system call, then the files.
SeenFile* FindSeen(const std::string& path) {
  auto seen = std::ranges::find(SeenFiles, path, &SeenFile::Path);
  if (seen == SeenFiles.end()) {
    seen = std::ranges::find_if(SeenFiles,
                                [&](const SeenFile& file) { return IsSameFile(file.Path, path); });
  }
  return seen == SeenFiles.end() ? nullptr : &*seen;
}

void Remember(const std::string& path) {
  if (SeenFile* seen = FindSeen(path)) {
    seen->Tables = Tables;
  } else {
    SeenFiles.push_back({path, Tables});
  }
}

void Forget(const std::string& path) {
  std::erase_if(SeenFiles, [&](const SeenFile& file) { return IsSameFile(file.Path, path); });
}

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
  Remember(fileName);
  return kind;
}

Result<> SaveTables(const std::string& fileName, FileKind kind, OthersChanges others) {
  const SeenFile* seen = others == OthersChanges::Keep ? FindSeen(fileName) : nullptr;
  const GameTables* known = seen == nullptr ? nullptr : &seen->Tables;
  auto saved = kind == FileKind::GameExeFile ? WriteGameTables(fileName, Tables, known)
                                             : WritePatchTables(fileName, Tables, known);
  if (saved.Done()) {
    Remember(fileName);
  } else if (IsTorn(saved.Error().State)) {
    Forget(fileName);  // the differences are our own
  }
  return saved;
}

void ForgetFiles() { SeenFiles.clear(); }

}  // namespace corvane
