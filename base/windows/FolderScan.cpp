// Folders through the calls of Windows. The system's wildcards are asked for everything only: they
// compare the short names as well.
#include "base/FolderScan.h"
#include "base/LetterCase.h"

#include <windows.h>

#include <memory>

#include "base/WideText.h"

namespace corvane {
namespace {

struct EndSearch {
  void operator()(HANDLE search) const { ::FindClose(search); }
};
using Search = std::unique_ptr<void, EndSearch>;

std::error_code LastErrorBut(DWORD expected) {
  const DWORD error = ::GetLastError();
  if (error == expected) return {};
  return {static_cast<int>(error), std::system_category()};
}

Search FindFirst(const std::string& path, WIN32_FIND_DATAW& entry) {
  const HANDLE search = ::FindFirstFileW(TextToWide(path).c_str(), &entry);
  return Search(search == INVALID_HANDLE_VALUE ? nullptr : search);
}

bool IsOrdinaryFile(DWORD attributes) {
  constexpr DWORD Others = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE |
                           FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
  return (attributes & Others) == 0;
}

}  // namespace

std::error_code ScanFolder(const std::string& folder, std::string_view extension, std::size_t max,
                           std::vector<std::string>& names) {
  WIN32_FIND_DATAW entry{};
  const Search search = FindFirst(folder + Separator + '*', entry);
  if (search == nullptr) return LastErrorBut(ERROR_FILE_NOT_FOUND);  // so an empty drive answers
  const std::string ending = ToUpper(extension);
  for (std::size_t found = 0; found < max;) {
    std::string name = WideToText(entry.cFileName);
    if (ToUpper(name).ends_with(ending) && IsOrdinaryFile(entry.dwFileAttributes)) {
      names.push_back(std::move(name));
      ++found;
    }
    if (::FindNextFileW(search.get(), &entry) == 0) return LastErrorBut(ERROR_NO_MORE_FILES);
  }
  return {};
}

std::string NameInFolder(const std::string& folder, const std::string& name,
                         const std::string& /*preferred*/) {
  // The search takes these as wildcards, and what stands behind the others as the name.
  if (name.find_first_of("*?<>\"/\\:") != std::string::npos) return name;
  WIN32_FIND_DATAW entry{};
  const Search search = FindFirst(folder + Separator + name, entry);
  return search == nullptr ? name : WideToText(entry.cFileName);
}

bool OrdinaryFileExists(const std::string& path) {
  // Of what is not there every attribute is set.
  return IsOrdinaryFile(::GetFileAttributesW(TextToWide(path).c_str()));
}

std::string CurrentFolder() {
  std::wstring folder(::GetCurrentDirectoryW(0, nullptr), L'\0');
  folder.resize(::GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
  return WideToText(folder);
}

}  // namespace corvane
