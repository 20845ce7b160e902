// Folders through the Windows API. Lists with the wildcard "*" only, since other wildcards also
// match short names (8.3).
#include "base/FolderScan.h"

#include <windows.h>

#include <algorithm>
#include <iterator>
#include <memory>

#include "base/LetterCase.h"
#include "base/WideText.h"

namespace corvane {
namespace {

struct EndSearch {
  void operator()(HANDLE search) const { ::FindClose(search); }
};
using Search = std::unique_ptr<void, EndSearch>;

std::error_code LastErrorUnless(DWORD expected) {
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

/// True for a name that denotes a device in every folder, with any extension.
bool IsDevice(std::string_view name) {
  constexpr std::string_view Devices[] = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
  std::string stem = ToUpper(name.substr(0, name.find('.')));
  stem.resize(stem.find_last_not_of(' ') + 1);
  const bool port = stem.starts_with("COM") || stem.starts_with("LPT");
  if (!port) return std::ranges::find(Devices, stem) != std::end(Devices);
  constexpr std::string_view Numbers[] = {"0", "1", "2", "3",      "4",      "5",     "6",
                                          "7", "8", "9", "\u00B9", "\u00B2", "\u00B3"};
  return std::ranges::find(Numbers, stem.substr(3)) != std::end(Numbers);
}

}  // namespace

std::string JoinPath(const std::string& folder, const std::string& name) {
  const bool verbatim = folder.starts_with(R"(\\?\)");
  return verbatim && folder.ends_with(Separator) ? folder + name : folder + Separator + name;
}

bool IsFileName(const std::string& name) {
  if (name.find_first_of(std::string_view("/\\:\0", 4)) != name.npos) return false;
  return !name.empty() && name != "." && name != ".." && !IsDevice(name);
}

std::error_code ScanFolder(const std::string& folder, std::string_view extension, std::size_t max,
                           std::vector<std::string>& names) {
  WIN32_FIND_DATAW entry{};
  const Search search = FindFirst(JoinPath(folder, "*"), entry);
  if (search == nullptr)
    return LastErrorUnless(ERROR_FILE_NOT_FOUND);  // the error for an empty drive
  const std::string ending = ToUpper(extension);
  for (std::size_t found = 0; found < max;) {
    std::string name = WideToText(entry.cFileName);
    if (ToUpper(name).ends_with(ending) && IsOrdinaryFile(entry.dwFileAttributes)) {
      names.push_back(std::move(name));
      ++found;
    }
    if (::FindNextFileW(search.get(), &entry) == 0) return LastErrorUnless(ERROR_NO_MORE_FILES);
  }
  return {};
}

std::string NameInFolder(const std::string& /*folder*/, const std::string& name,
                         const std::string& /*preferred*/) {
  return name;  // the system itself is case-insensitive
}

bool OrdinaryFileExists(const std::string& path) {
  // If the path does not exist, every attribute is set.
  return IsOrdinaryFile(::GetFileAttributesW(TextToWide(path).c_str()));
}

std::string CurrentFolder() {
  std::wstring folder(::GetCurrentDirectoryW(0, nullptr), L'\0');
  folder.resize(::GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
  return WideToText(folder);
}

}  // namespace corvane
