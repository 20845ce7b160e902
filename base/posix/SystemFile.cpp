// Single file operations through POSIX calls. Interrupted calls are repeated, except flush and
// close, where a second call can succeed although data was lost.
#include "SystemFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace corvane {
namespace {

static_assert(sizeof(off_t) == sizeof(std::int64_t), "offsets must reach beyond 2 GB");

std::error_code LastError() { return {errno, std::system_category()}; }

template <class Call>
auto RetryInterrupted(Call call) {
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
  // Without O_NONBLOCK, opening a pipe waits for its other end.
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

FileType TypeOf(mode_t mode) {
  if (S_ISREG(mode)) return FileType::Ordinary;
  return S_ISDIR(mode) ? FileType::Folder : FileType::Other;
}

std::int64_t Nanoseconds(const timespec& time) {
  constexpr std::int64_t PerSecond = 1000000000;
  return time.tv_sec * PerSecond + time.tv_nsec;
}

FileStatus StatusOf(const struct stat& found) {
  return {TypeOf(found.st_mode),
          static_cast<std::uint64_t>(found.st_size),
          {static_cast<std::uint64_t>(found.st_dev), static_cast<std::uint64_t>(found.st_ino)},
          Nanoseconds(found.st_mtim)};
}

}  // namespace

NativePath ToNativePath(const std::string& path) { return path; }

std::error_code SystemOpen(const NativePath& path, OpenMode mode, SystemHandle& handle) {
  constexpr mode_t Permissions = 0666;  // the umask reduces them
  const int descriptor =
      RetryInterrupted([&] { return ::open(path.c_str(), FlagsFor(mode), Permissions); });
  if (descriptor < 0) return LastError();
  handle = descriptor;
  return {};
}

std::error_code SystemStatus(SystemHandle handle, FileStatus& status) {
  struct stat found {};
  if (::fstat(Descriptor(handle), &found) != 0) return LastError();
  status = StatusOf(found);
  return {};
}

std::error_code SystemPathStatus(const NativePath& path, FileStatus& status) {
  struct stat found {};
  status = {};
  if (::stat(path.c_str(), &found) == 0) {
    status = StatusOf(found);
    return {};
  }
  const bool absent = errno == ENOENT || errno == ENOTDIR || errno == ENAMETOOLONG;
  return absent ? std::error_code() : LastError();
}

std::error_code SystemRead(SystemHandle handle, std::uint64_t offset, std::span<std::byte> buffer,
                           std::size_t& moved) {
  const auto result = RetryInterrupted([&] {
    return ::pread(Descriptor(handle), buffer.data(), buffer.size(), static_cast<off_t>(offset));
  });
  return MovedOrError(result, moved);
}

std::error_code SystemWrite(SystemHandle handle, std::uint64_t offset,
                            std::span<const std::byte> bytes, std::size_t& moved) {
  const auto result = RetryInterrupted([&] {
    return ::pwrite(Descriptor(handle), bytes.data(), bytes.size(), static_cast<off_t>(offset));
  });
  return MovedOrError(result, moved);
}

std::error_code SystemSetLength(SystemHandle handle, std::uint64_t length) {
  const int result =
      RetryInterrupted([&] { return ::ftruncate(Descriptor(handle), static_cast<off_t>(length)); });
  return result == 0 ? std::error_code() : LastError();
}

std::error_code SystemFlush(SystemHandle handle) {
  return ::fsync(Descriptor(handle)) == 0 ? std::error_code() : LastError();
}

std::error_code SystemClose(SystemHandle handle) {
  return ::close(Descriptor(handle)) == 0 ? std::error_code() : LastError();
}

std::error_code SystemRemove(const NativePath& path) {
  return ::unlink(path.c_str()) == 0 ? std::error_code() : LastError();
}

std::string SystemMessage(std::error_code error) { return error.message(); }

std::string SystemHint(std::error_code error, const std::string& /*path*/) {
  return error == std::errc::text_file_busy
             ? "it is open in another program, such as the game itself while it runs"
             : "";
}

}  // namespace corvane
