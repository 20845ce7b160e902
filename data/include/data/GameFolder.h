// What a chosen file is, told from its name alone, and which game folder goes with it.
#pragma once

#include <string>
#include <string_view>

#include "base/FileResult.h"

namespace corvane {

enum class FileKind {
  GameExeFile,    // its own folder is the game's
  PatchFile,      // the game's folder is that of the installed game
  OtherFile,      // not opened
  NoInstallPath,  // a patch file, and no installed game on this machine
};

struct OpenOutcome {
  FileKind Kind = FileKind::OtherFile;
  FileResult Read;  // of a GameExeFile or PatchFile
};

/// By the name alone; it never is NoInstallPath.
[[nodiscard]] FileKind KindOfFile(std::string_view fileTitle);

/// Sets GamePath to the installed game's folder; False, and GamePath stays, if there is none.
[[nodiscard]] bool ReadInstallPath();

/// Sets GamePath and OpenedFile and fills the four tables from the file; for every other outcome,
/// and if the file cannot be read, all of them stay. `fileTitle` is `fileName` without its folder.
[[nodiscard]] OpenOutcome OpenTables(const std::string& fileName, const std::string& fileTitle);

}  // namespace corvane
