// What RawFile does on every system: refuses offsets that a signed 64-bit number cannot hold, and
// continues after short transfers.
#include "base/RawFile.h"

#include <limits>
#include <utility>

#include "SystemFile.h"

namespace corvane {
namespace {

constexpr std::uint64_t MaxLength = std::numeric_limits<std::int64_t>::max();

std::error_code CheckRange(std::uint64_t offset, std::size_t size) {
  if (size <= MaxLength && offset <= MaxLength - size) return {};
  return std::make_error_code(std::errc::value_too_large);
}

}  // namespace

RawFile::~RawFile() {
  if (IsOpen()) static_cast<void>(SystemClose(Handle));
}

std::error_code RawFile::Open(const std::string& path, OpenMode mode) {
  if (IsOpen()) return std::make_error_code(std::errc::device_or_resource_busy);
  Path = ToNativePath(path);
  return Reopen(mode);
}

std::error_code RawFile::Reopen(OpenMode mode) { return SystemOpen(Path, mode, Handle); }

std::error_code RawFile::Status(FileStatus& status) { return SystemStatus(Handle, status); }

std::error_code RawFile::PathStatus(FileStatus& status) const {
  return SystemPathStatus(Path, status);
}

std::error_code RawFile::ReadAt(std::uint64_t offset, std::span<std::byte> buffer,
                                std::size_t& read) {
  read = 0;
  if (const auto error = CheckRange(offset, buffer.size())) return error;
  while (read < buffer.size()) {
    std::size_t step = 0;
    if (const auto error = SystemRead(Handle, offset + read, buffer.subspan(read), step))
      return error;
    if (step == 0) break;
    read += step;
  }
  return {};
}

std::error_code RawFile::WriteAt(std::uint64_t offset, std::span<const std::byte> bytes) {
  if (const auto error = CheckRange(offset, bytes.size())) return error;
  for (std::size_t written = 0; written < bytes.size();) {
    std::size_t step = 0;
    if (const auto error = SystemWrite(Handle, offset + written, bytes.subspan(written), step))
      return error;
    // A write that moves nothing and reports no error would loop forever.
    if (step == 0) return std::make_error_code(std::errc::io_error);
    written += step;
  }
  return {};
}

std::error_code RawFile::SetLength(std::uint64_t length) {
  if (const auto error = CheckRange(length, 0)) return error;
  return SystemSetLength(Handle, length);
}

std::error_code RawFile::Flush() { return SystemFlush(Handle); }

std::error_code RawFile::Close() { return SystemClose(std::exchange(Handle, NoHandle)); }

std::error_code RawFile::Remove() const { return SystemRemove(Path); }

std::error_code RemoveFile(const std::string& path) { return SystemRemove(ToNativePath(path)); }

FileStatus StatusAt(const std::string& path) {
  FileStatus status;
  return SystemPathStatus(ToNativePath(path), status) ? FileStatus() : status;
}

bool IsSameFile(const std::string& left, const std::string& right) {
  const FileStatus one = StatusAt(left);
  const FileStatus other = StatusAt(right);
  return one.Type != FileType::None && other.Type != FileType::None &&
         one.Identity == other.Identity;
}

}  // namespace corvane
