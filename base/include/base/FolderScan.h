// Folders: what a scan by extension finds, how the path of a file there is made, and which name is
// meant where the system tells letter case apart.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace corvane {

inline constexpr char Separator = static_cast<char>(std::filesystem::path::preferred_separator);

/// `folder`, a separator, `name`. A folder that ends in a separator then has two in a row, which
/// the system takes as one; a Windows path that begins with \\?\ gets no second one.
[[nodiscard]] std::string JoinPath(const std::string& folder, const std::string& name);

/// True if a file called `name` can stand in a folder: no separator of the system in it, and on
/// Windows neither a colon nor the name of a device.
[[nodiscard]] bool IsFileName(const std::string& name);

/// Appends to `names` the names (no folder) of ordinary files in `folder` that end in `extension`
/// (".btd") in any letter case, hidden and system files left out, in the order in which the file
/// system gives them, and stops at `max`. A folder that is not there fails.
[[nodiscard]] std::error_code ScanFolder(const std::string& folder, std::string_view extension,
                                         std::size_t max, std::vector<std::string>& names);

/// The name in `folder` that matches `name` without regard to letter case in any alphabet: `name`
/// itself if it is there, else `preferred` if that matches and is there, else the first match in
/// byte order. `name` again if nothing matches, or where the system itself is case-insensitive.
[[nodiscard]] std::string NameInFolder(const std::string& folder, const std::string& name,
                                       const std::string& preferred = {});

/// True if an ordinary file, neither hidden nor system, stands at `path`.
[[nodiscard]] bool OrdinaryFileExists(const std::string& path);

/// The working directory; empty if unknown.
[[nodiscard]] std::string CurrentFolder();

}  // namespace corvane
