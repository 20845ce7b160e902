#include "Browser.h"

#include <spawn.h>
#include <unistd.h>

namespace corvane {

std::error_code OpenInBrowser(const std::string& path) {
  std::string program = "xdg-open";
  std::string page = path;
  char* const arguments[] = {program.data(), page.data(), nullptr};
  pid_t child = 0;
  // The child outlives this program: xdg-open may stay for as long as the browser does.
  const int error = ::posix_spawnp(&child, program.c_str(), nullptr, nullptr, arguments, ::environ);
  return {error, std::system_category()};
}

}  // namespace corvane
