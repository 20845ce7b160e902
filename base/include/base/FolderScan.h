// Folders: scans by extension, paths of files in a folder, and names in another letter case on a
// case-sensitive system.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace corvane {

inline constexpr char Separator = static_cast<char>(std::filesystem::path::preferred_separator);

/// `folder`, a separator, `name`. After a folder that ends in a separator there are two, which the
/// system treats as one. A Windows path that begins with \\?\ gets no second separator.
[[nodiscard]] std::string JoinPath(const std::string& folder, const std::string& name);

/// True if `name` can name a file in a folder: it contains no separator and, on Windows, no colon
/// and no device name.
[[nodiscard]] bool IsFileName(const std::string& name);

/// Appends to `names` the names, without the folder, of up to `max` ordinary files in `folder` that
/// end in `extension` (".btd") in any letter case, in the order of the file system. Skips hidden
/// and system files. Fails if the folder does not exist.
[[nodiscard]] std::error_code ScanFolder(const std::string& folder, std::string_view extension,
                                         std::size_t max, std::vector<std::string>& names);

/// The name in `folder` that matches `name`, ignoring case in every alphabet: `name` itself if it
/// exists, else `preferred` if it matches and exists, else the first match in byte order.
/// Returns `name` if nothing matches, or if the system itself is case-insensitive.
[[nodiscard]] std::string NameInFolder(const std::string& folder, const std::string& name,
                                       const std::string& preferred = {});

/// True if `path` names an ordinary file that is neither hidden nor a system file.
[[nodiscard]] bool OrdinaryFileExists(const std::string& path);

/// The working directory; empty if unknown.
[[nodiscard]] std::string CurrentFolder();

}  // namespace corvane
