#include "StandardStreams.h"

#include <unistd.h>

#include <cerrno>

namespace corvane {
namespace {

int Descriptor(Stream stream) { return stream == Stream::Output ? STDOUT_FILENO : STDERR_FILENO; }

}  // namespace

std::error_code WriteStream(Stream stream, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(Descriptor(stream), bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) return {errno, std::system_category()};
    if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return {};
}

bool SupportsColour(Stream stream) { return ::isatty(Descriptor(stream)) == 1; }

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

}  // namespace corvane
