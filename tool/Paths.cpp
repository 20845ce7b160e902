#include "Paths.h"

#include "base/FolderScan.h"

namespace corvane {
namespace {

constexpr std::string_view Separators = Separator == '\\' ? "/\\:" : "/";

}  // namespace

std::filesystem::path ToSystemPath(const std::string& path) {
  return std::u8string(path.begin(), path.end());
}

std::string_view FileTitle(std::string_view path) {
  return path.substr(path.find_last_of(Separators) + 1);
}

std::string FolderOf(std::string_view path) {
  std::string folder(path.substr(0, path.size() - FileTitle(path).size()));
  if (folder.empty() || folder.ends_with(':')) (folder += '.') += Separator;
  return folder;
}

std::string InCaseOfFile(const std::string& path) {
  const std::string title(FileTitle(path));
  return path.substr(0, path.size() - title.size()) + NameInFolder(FolderOf(path), title);
}

std::uint64_t FileLength(const std::string& path) {
  std::error_code error;
  const std::uintmax_t length = std::filesystem::file_size(ToSystemPath(path), error);
  return error ? 0 : length;
}

}  // namespace corvane
