#include "Browser.h"

#include <spawn.h>
#include <unistd.h>

namespace corvane {

std::error_code OpenInBrowser(const std::string& path) {
  std::string program = "xdg-open";
  std::string page = path;
  char* const arguments[] = {program.data(), page.data(), nullptr};
  pid_t child = 0;
  // Does not wait for the child: xdg-open may run as long as the browser.
  const int error = ::posix_spawnp(&child, program.c_str(), nullptr, nullptr, arguments, ::environ);
  return {error, std::system_category()};
}

}  // namespace corvane
