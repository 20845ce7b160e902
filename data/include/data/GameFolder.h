// Files of tables opened and saved: what a chosen file is, told from its name alone, which game
// folder goes with it, and what others have done to it since.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "base/Result.h"

namespace corvane {

enum class FileKind {
  GameExeFile,    // its own folder is the game's
  PatchFile,      // the game's folder is that of the installed game
  OtherFile,      // not opened
  NoInstallPath,  // a patch file, and no installed game on this machine
};

// Where the game's installer leaves its folder, under HKEY_LOCAL_MACHINE.
inline constexpr char InstallKey[] = R"(Software\Strategic Simulations Inc.\Close Combat\4.00\)";
inline constexpr char InstallValue[] = "InstalledTo";
inline constexpr std::size_t InstallValueLimit = 1024;  // bytes, the closing NUL included

/// By the name alone, in any letter case; never NoInstallPath.
[[nodiscard]] FileKind KindOfFile(std::string_view fileTitle);

/// The installed game's folder; nothing if the registry names none.
[[nodiscard]] std::optional<std::string> ReadInstallPath();

/// Sets GamePath and OpenedFile and fills the four tables from the file. `fileTitle` is `fileName`
/// without its folder. A file that cannot be read, and every other kind, changes nothing.
[[nodiscard]] Result<FileKind> OpenTables(const std::string& fileName,
                                          const std::string& fileTitle);

/// Whether a save may overwrite what another program has written into the file meanwhile.
enum class OthersChanges { Keep, Overwrite };

/// Writes the four tables to a file of the kind GameExeFile or PatchFile. Where its tables differ
/// from those last opened from it or saved to it here, and Keep is given, it fails with
/// ChangedByAnother. A file that was only cut short is lengthened again.
[[nodiscard]] Result<> SaveTables(const std::string& fileName, FileKind kind, OthersChanges others);

/// Forgets which tables were opened from and saved to which files.
void ForgetFiles();

}  // namespace corvane
