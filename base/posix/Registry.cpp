// The registry of the user's Wine prefix, read only.
#include "base/Registry.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <span>
#include <string_view>

#include "base/AnsiText.h"
#include "base/FolderScan.h"
#include "base/RawFile.h"
#include "posix/WineRegistry.h"

namespace corvane {
namespace {

// In bytes. Real registry files are a few megabytes.
constexpr std::uint64_t MaxRegistrySize = std::uint64_t{16} << 20;

std::string HomeFolder() {
  const char* home = std::getenv("HOME");
  if (home != nullptr && *home != '\0') return home;
  const passwd* user = ::getpwuid(::getuid());
  return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "";
}

/// The text of the file; empty if it cannot be read or is too large.
std::string ReadRegistry(const std::string& path) {
  RawFile file;
  FileStatus status;
  if (file.Open(path, OpenMode::Read) || file.Status(status)) return {};
  if (status.Length > MaxRegistrySize) return {};
  std::string text(status.Length, '\0');
  std::size_t read = 0;
  if (file.ReadAt(0, std::as_writable_bytes(std::span(text)), read)) return {};
  text.resize(read);
  return text;
}

/// The key in which a 64-bit prefix stores what 32-bit programs write under `key`.
std::string KeyOf32BitPrograms(const std::string& key) {
  const std::size_t root = key.find('\\') + 1;
  return key.substr(0, root) + "Wow6432Node\\" + key.substr(root);
}

bool IsLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

/// Converts a Windows path with a drive to a path of this system, matching existing folders
/// case-insensitively. Keeps repeated separators. Returns a path without a drive unchanged.
std::string ToNativeFolder(const std::string& prefix, std::string_view path) {
  if (path.size() < 2 || !IsLetter(path[0]) || path[1] != ':') return std::string(path);
  std::string folder = prefix + "/dosdevices";
  std::string name = {static_cast<char>(path[0] | 0x20), ':'};
  for (path.remove_prefix(2);; path.remove_prefix(name.size())) {
    folder += Separator + (name.empty() ? name : NameInFolder(folder, name));
    if (path.empty()) return folder;
    if (path.front() == '\\' || path.front() == '/') path.remove_prefix(1);
    name = path.substr(0, path.find_first_of("\\/"));
  }
}

}  // namespace

std::optional<std::string> ReadRegistryFolder(const std::string& key, const std::string& name,
                                              std::size_t limit) {
  const std::string home = HomeFolder();
  if (home.empty()) return std::nullopt;
  const std::string prefix = home + "/.wine";
  const std::string registry = ReadRegistry(prefix + "/system.reg");
  for (const std::string& view : {KeyOf32BitPrograms(key), key}) {
    const auto value = FindRegistryValue(registry, view, name);
    if (!value) continue;
    if (TextToAnsi(*value).size() > limit) return std::nullopt;
    return ToNativeFolder(prefix, std::string_view(*value).substr(0, value->find('\0')));
  }
  return std::nullopt;
}

}  // namespace corvane
