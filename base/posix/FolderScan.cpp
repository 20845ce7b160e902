// Folders through Linux system calls. No file counts as hidden or as a system file, whatever its
// name begins with.
#include "base/FolderScan.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>

#include "base/LetterCase.h"
#include "posix/Utf8.h"

namespace corvane {
namespace {

std::error_code LastError() { return {errno, std::system_category()}; }

/// The entries of a folder, read in small batches. The C library would read a thousand entries of a
/// large folder before it returns the first, and the file system may have to sort them all.
class Folder {
 public:
  explicit Folder(const std::string& path)
      : Descriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {}
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() {
    if (IsOpen()) ::close(Descriptor);
  }

  [[nodiscard]] bool IsOpen() const { return Descriptor >= 0; }

  /// The next entry; null at the end, or if `error` is set.
  const dirent64* Next(std::error_code& error) {
    if (Fetched == 0) {
      ssize_t got = 0;
      do {
        got = ::getdents64(Descriptor, Bytes, sizeof Bytes);
      } while (got < 0 && errno == EINTR);
      if (got < 0) error = LastError();
      if (got <= 0) return nullptr;
      Fetched = static_cast<std::size_t>(got);
      At = Bytes;
    }
    const auto* entry = static_cast<const dirent64*>(static_cast<const void*>(At));
    At += entry->d_reclen;
    Fetched -= entry->d_reclen;
    return entry;
  }

  [[nodiscard]] bool IsOrdinaryFile(const dirent64& entry) const {
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return entry.d_type == DT_REG;
    struct stat status {};
    return ::fstatat(Descriptor, entry.d_name, &status, 0) == 0 && S_ISREG(status.st_mode);
  }

 private:
  int Descriptor;
  alignas(dirent64) char Bytes[4096] = {};
  const char* At = Bytes;
  std::size_t Fetched = 0;  // unread bytes from At on
};

bool PathExists(const std::string& path) {
  struct stat status {};
  return ::lstat(path.c_str(), &status) == 0;
}

/// The first name in byte order that matches `name`; empty if there is none.
std::string FirstMatch(const std::string& folder, std::string_view name) {
  std::string first;
  std::error_code error;
  Folder open(folder);
  if (!open.IsOpen()) return first;
  while (const dirent64* entry = open.Next(error)) {
    const std::string_view found = entry->d_name;
    if (!EqualIgnoringCase(found, name)) continue;
    if (first.empty() || found < first) first = found;
  }
  return first;
}

}  // namespace

std::string JoinPath(const std::string& folder, const std::string& name) {
  return folder + Separator + name;
}

bool IsFileName(const std::string& name) {
  const bool plain = name.find_first_of(std::string_view("/\0", 2)) == name.npos;
  return plain && !name.empty() && name != "." && name != "..";
}

std::error_code ScanFolder(const std::string& folder, std::string_view extension, std::size_t max,
                           std::vector<std::string>& names) {
  Folder open(folder);
  if (!open.IsOpen()) return LastError();
  const std::string ending = ToUpper(extension);
  std::error_code error;
  for (std::size_t found = 0; found < max;) {
    const dirent64* entry = open.Next(error);
    if (entry == nullptr) break;
    const std::string_view name = entry->d_name;
    if (!ToUpper(name).ends_with(ending) || !open.IsOrdinaryFile(*entry)) continue;
    names.emplace_back(name);
    ++found;
  }
  return error;
}

std::string NameInFolder(const std::string& folder, const std::string& name,
                         const std::string& preferred) {
  if (PathExists(JoinPath(folder, name))) return name;
  if (EqualIgnoringCase(preferred, name) && PathExists(JoinPath(folder, preferred)))
    return preferred;
  const std::string match = FirstMatch(JoinPath(folder, ""), name);
  return match.empty() ? name : match;
}

bool OrdinaryFileExists(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

std::string CurrentFolder() {
  char folder[PATH_MAX];
  return ::getcwd(folder, sizeof folder) != nullptr ? folder : "";
}

}  // namespace corvane
