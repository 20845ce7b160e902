// Single steps on a file through POSIX calls. A call that a signal broke off is made again, but
// for the flush and the close: a second try of these can succeed although the data is lost.
#include "SystemFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace corvane {
namespace {

static_assert(sizeof(off_t) == sizeof(std::int64_t), "offsets have to reach beyond 2 GB");

std::error_code LastError() { return {errno, std::system_category()}; }

template <class Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

int Descriptor(SystemHandle handle) { return static_cast<int>(handle); }

std::error_code MovedOrError(ssize_t result, std::size_t& moved) {
  if (result < 0) return LastError();
  moved = static_cast<std::size_t>(result);
  return {};
}

int FlagsFor(OpenMode mode) {
  // Without O_NONBLOCK the open of a pipe waits for its other end.
  constexpr int Always = O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
  switch (mode) {
    case OpenMode::Read:
      return Always | O_RDONLY;
    case OpenMode::Change:
      return Always | O_RDWR;
    case OpenMode::Create:
      return Always | O_RDWR | O_CREAT | O_EXCL;
  }
  return Always | O_RDONLY;
}

std::error_code CheckOrdinary(int descriptor) {
  struct stat status {};
  if (::fstat(descriptor, &status) != 0) return LastError();
  if (S_ISREG(status.st_mode)) return {};
  return {S_ISDIR(status.st_mode) ? EISDIR : EINVAL, std::system_category()};
}

}  // namespace

std::error_code SystemOpen(const std::string& path, OpenMode mode, SystemHandle& handle) {
  constexpr mode_t LeaveToMask = 0666;
  const int descriptor =
      Uninterrupted([&] { return ::open(path.c_str(), FlagsFor(mode), LeaveToMask); });
  if (descriptor < 0) return LastError();
  // Folders and pipes refuse a read at an offset by themselves: it saves a call for every map.
  if (mode != OpenMode::Read) {
    if (const auto error = CheckOrdinary(descriptor)) {
      ::close(descriptor);
      return error;
    }
  }
  handle = descriptor;
  return {};
}

std::error_code SystemLength(SystemHandle handle, std::uint64_t& length) {
  struct stat status {};
  if (::fstat(Descriptor(handle), &status) != 0) return LastError();
  length = static_cast<std::uint64_t>(status.st_size);
  return {};
}

std::error_code SystemRead(SystemHandle handle, std::uint64_t offset, std::span<std::byte> buffer,
                           std::size_t& moved) {
  const auto result = Uninterrupted([&] {
    return ::pread(Descriptor(handle), buffer.data(), buffer.size(), static_cast<off_t>(offset));
  });
  return MovedOrError(result, moved);
}

std::error_code SystemWrite(SystemHandle handle, std::uint64_t offset,
                            std::span<const std::byte> bytes, std::size_t& moved) {
  const auto result = Uninterrupted([&] {
    return ::pwrite(Descriptor(handle), bytes.data(), bytes.size(), static_cast<off_t>(offset));
  });
  return MovedOrError(result, moved);
}

std::error_code SystemSetLength(SystemHandle handle, std::uint64_t length) {
  const int result =
      Uninterrupted([&] { return ::ftruncate(Descriptor(handle), static_cast<off_t>(length)); });
  return result == 0 ? std::error_code() : LastError();
}

std::error_code SystemFlush(SystemHandle handle) {
  return ::fsync(Descriptor(handle)) == 0 ? std::error_code() : LastError();
}

std::error_code SystemClose(SystemHandle handle) {
  return ::close(Descriptor(handle)) == 0 ? std::error_code() : LastError();
}

std::error_code SystemRemove(const std::string& path) {
  return ::unlink(path.c_str()) == 0 ? std::error_code() : LastError();
}

std::string SystemMessage(std::error_code error) { return error.message(); }

bool IsInUse(std::error_code error) { return error == std::errc::text_file_busy; }

}  // namespace corvane
