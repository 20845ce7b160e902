// What RawFile does on every system: ask for injected faults, refuse offsets that a signed 64-bit
// number cannot hold, and carry on after short transfers.
#include "base/RawFile.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "SystemFile.h"

namespace corvane {
namespace {

constexpr std::uint64_t MaxLength = std::numeric_limits<std::int64_t>::max();

std::error_code AskForFault(FileStep step, std::size_t& bytes) {
  if (!InjectedFault) return {};
  const std::size_t most = bytes;
  const std::error_code error = InjectedFault(step, bytes);
  bytes = std::min(bytes, most);
  return error;
}

std::error_code AskForFault(FileStep step) {
  std::size_t none = 0;
  return AskForFault(step, none);
}

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
  if (const auto error = AskForFault(FileStep::Open)) return error;
  return SystemOpen(path, mode, Handle);
}

std::error_code RawFile::Length(std::uint64_t& length) {
  if (const auto error = AskForFault(FileStep::Length)) return error;
  return SystemLength(Handle, length);
}

std::error_code RawFile::ReadAt(std::uint64_t offset, std::span<std::byte> buffer,
                                std::size_t& read) {
  read = 0;
  if (const auto error = CheckRange(offset, buffer.size())) return error;
  while (read < buffer.size()) {
    std::size_t step = buffer.size() - read;
    if (const auto error = AskForFault(FileStep::Read, step)) return error;
    const auto part = buffer.subspan(read, step);
    if (const auto error = SystemRead(Handle, offset + read, part, step)) return error;
    if (step == 0) break;
    read += step;
  }
  return {};
}

std::error_code RawFile::WriteAt(std::uint64_t offset, std::span<const std::byte> bytes) {
  if (const auto error = CheckRange(offset, bytes.size())) return error;
  for (std::size_t written = 0; written < bytes.size();) {
    std::size_t step = bytes.size() - written;
    if (const auto error = AskForFault(FileStep::Write, step)) return error;
    const auto part = bytes.subspan(written, step);
    if (const auto error = SystemWrite(Handle, offset + written, part, step)) return error;
    // A system that takes nothing and names no reason would be asked for ever.
    if (step == 0) return std::make_error_code(std::errc::io_error);
    HasChanged = true;
    written += step;
  }
  return {};
}

std::error_code RawFile::SetLength(std::uint64_t length) {
  if (const auto error = CheckRange(length, 0)) return error;
  if (const auto error = AskForFault(FileStep::SetLength)) return error;
  HasChanged = true;
  return SystemSetLength(Handle, length);
}

std::error_code RawFile::Flush() {
  if (const auto error = AskForFault(FileStep::Flush)) return error;
  return SystemFlush(Handle);
}

std::error_code RawFile::Close() {
  // As with a real failure, the file does not stay open after an injected one.
  const auto fault = AskForFault(FileStep::Close);
  const auto error = SystemClose(std::exchange(Handle, NoHandle));
  return fault ? fault : error;
}

std::error_code RemoveFile(const std::string& path) {
  if (const auto error = AskForFault(FileStep::Remove)) return error;
  return SystemRemove(path);
}

}  // namespace corvane
