// Folders: what a scan by extension finds, and which name there is meant where the system tells
// capitals from small letters.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace corvane {

inline constexpr char Separator = static_cast<char>(std::filesystem::path::preferred_separator);

/// Appends to `names` the names (no folder) of ordinary files in `folder` that end in `extension`
/// (".btd") in any letter case, hidden and system files left out, in the order in which the file
/// system gives them, and stops at `max`. A folder that is not there fails.
[[nodiscard]] std::error_code ScanFolder(const std::string& folder, std::string_view extension,
                                         std::size_t max, std::vector<std::string>& names);

/// The name in `folder` that stands for `name` when letter case does not count: `name` itself if
/// it is there, else `preferred` if that matches and is there, else the first match in byte order.
/// `name` again if nothing matches, or where the system itself is blind to case.
[[nodiscard]] std::string NameInFolder(const std::string& folder, const std::string& name,
                                       const std::string& preferred = {});

/// True if an ordinary file, neither hidden nor system, stands at `path`.
[[nodiscard]] bool OrdinaryFileExists(const std::string& path);

/// The working directory; empty if unknown.
[[nodiscard]] std::string CurrentFolder();

}  // namespace corvane
