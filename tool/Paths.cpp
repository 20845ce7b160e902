#include "Paths.h"

#include <filesystem>

#include "base/FolderScan.h"

namespace corvane {
namespace {

constexpr std::string_view Separators = Separator == '\\' ? "/\\:" : "/";

}  // namespace

std::string_view FileTitle(std::string_view path) {
  return path.substr(path.find_last_of(Separators) + 1);
}

std::string FolderOf(std::string_view path) {
  std::string folder(path.substr(0, path.size() - FileTitle(path).size()));
  if (folder.empty() || folder.ends_with(':')) (folder += '.') += Separator;
  return folder;
}

std::uint64_t FileLength(const std::string& path) {
  std::error_code error;
  const std::filesystem::path name(std::u8string(path.begin(), path.end()));
  const std::uintmax_t length = std::filesystem::file_size(name, error);
  return error ? 0 : length;
}

}  // namespace corvane
