// Folders through POSIX calls. There are no hidden or system files here: a leading dot is no mark.
#include "platform/FolderScan.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>

namespace corvane {
namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { ::closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, CloseFolder>;

std::error_code LastError() { return {errno, std::system_category()}; }

const dirent* NextEntry(const OpenFolder& folder, std::error_code& error) {
  errno = 0;
  const dirent* entry = ::readdir(folder.get());
  if (entry == nullptr && errno != 0) error = LastError();
  return entry;
}

bool IsOrdinaryFile(const OpenFolder& folder, const dirent& entry) {
  if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return entry.d_type == DT_REG;
  struct stat status {};
  return ::fstatat(::dirfd(folder.get()), entry.d_name, &status, 0) == 0 && S_ISREG(status.st_mode);
}

bool IsThere(const std::string& path) {
  struct stat status {};
  return ::lstat(path.c_str(), &status) == 0;
}

/// The first name in byte order that spells `capitals`; empty if there is none.
std::string FirstMatch(const std::string& folder, const std::string& capitals) {
  std::string first;
  std::error_code error;
  const OpenFolder open(::opendir(folder.c_str()));
  if (open == nullptr) return first;
  while (const dirent* entry = NextEntry(open, error)) {
    const std::string_view name = entry->d_name;
    if (name.size() != capitals.size() || InCapitals(name) != capitals) continue;
    if (first.empty() || name < first) first = name;
  }
  return first;
}

}  // namespace

std::error_code ScanFolder(const std::string& folder, std::string_view extension, std::size_t most,
                           std::vector<std::string>& names) {
  const OpenFolder open(::opendir(folder.c_str()));
  if (open == nullptr) return LastError();
  const std::string ending = InCapitals(extension);
  std::error_code error;
  for (std::size_t found = 0; found < most;) {
    const dirent* entry = NextEntry(open, error);
    if (entry == nullptr) break;
    const std::string_view name = entry->d_name;
    if (!InCapitals(name).ends_with(ending) || !IsOrdinaryFile(open, *entry)) continue;
    names.emplace_back(name);
    ++found;
  }
  return error;
}

std::string NameInFolder(const std::string& folder, const std::string& name,
                         const std::string& preferred) {
  const std::string start = folder + Separator;
  if (IsThere(start + name)) return name;
  const std::string capitals = InCapitals(name);
  if (InCapitals(preferred) == capitals && IsThere(start + preferred)) return preferred;
  const std::string match = FirstMatch(start, capitals);
  return match.empty() ? name : match;
}

bool OrdinaryFileExists(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace corvane
