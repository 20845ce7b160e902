// What a chosen file is, told from its name alone, and which game folder goes with it.
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

}  // namespace corvane
