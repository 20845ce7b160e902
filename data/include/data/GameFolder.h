// Opens and saves the files that hold the tables: determines a file's kind from its name, finds the
// game folder that belongs to it, and detects changes by other programs.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/Result.h"

namespace corvane {

enum class FileKind {
  GameExeFile,    // its folder is the game's folder
  PatchFile,      // belongs to the folder of the installed game
  OtherFile,      // not opened
  NoInstallPath,  // a patch file, but no game is installed
};

// The registry value under HKEY_LOCAL_MACHINE in which the installer stores the game's folder.
inline constexpr char InstallKey[] = R"(Software\Strategic Simulations Inc.\Close Combat\4.00\)";
inline constexpr char InstallValue[] = "InstalledTo";
inline constexpr std::size_t InstallValueLimit = 1024;  // bytes, including the closing NUL

/// Determines the kind from the name alone, in any letter case. Never NoInstallPath.
[[nodiscard]] FileKind KindOfFile(std::string_view fileTitle);

/// The folder of the installed game, if the registry names one.
[[nodiscard]] std::optional<std::string> ReadInstallPath();

/// Sets GamePath and OpenedFile and fills the four tables from the file. `fileTitle` is `fileName`
/// without its folder. Changes nothing if the file cannot be read or is of another kind.
[[nodiscard]] Result<FileKind> OpenTables(const std::string& fileName,
                                          const std::string& fileTitle);

/// Whether a save may overwrite changes that another program has made to the file.
enum class OthersChanges { Keep, Overwrite };

/// Writes the four tables to a file of the kind GameExeFile or PatchFile. With Keep, fails with
/// ChangedByAnother if the tables in the file differ from those that were last opened from it or
/// saved to it. Extends a file that was only truncated.
[[nodiscard]] Result<> SaveTables(const std::string& fileName, FileKind kind, OthersChanges others);

/// Forgets the tables that were opened from or saved to files.
void ForgetFiles();

}  // namespace corvane
