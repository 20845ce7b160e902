// Replaces the file operations between RawFile and the system, and injects faults around the real
// ones, which are compiled a second time under the names declared here.
#include <algorithm>

#include "Faults.h"
#include "SystemFile.h"

namespace corvane {

std::error_code RealOpen(const NativePath&, OpenMode, SystemHandle&);
std::error_code RealStatus(SystemHandle, FileStatus&);
std::error_code RealPathStatus(const NativePath&, FileStatus&);
std::error_code RealRead(SystemHandle, std::uint64_t, std::span<std::byte>, std::size_t&);
std::error_code RealWrite(SystemHandle, std::uint64_t, std::span<const std::byte>, std::size_t&);
std::error_code RealSetLength(SystemHandle, std::uint64_t);
std::error_code RealFlush(SystemHandle);
std::error_code RealClose(SystemHandle);
std::error_code RealRemove(const NativePath&);

namespace {

std::error_code Inject(FileStep step, Moment moment, std::size_t& bytes) {
  return InjectedFault ? InjectedFault(step, moment, bytes) : std::error_code();
}

// Runs the real step, with at most `bytes` bytes if it is a transfer.
template <class Real>
std::error_code Around(FileStep step, const Real& real, std::size_t bytes = 0) {
  const std::size_t all = bytes;
  if (const auto error = Inject(step, Moment::Before, bytes)) return error;
  const std::error_code error = real(std::min(bytes, all));
  const auto fault = Inject(step, Moment::After, bytes);
  return fault ? fault : error;
}

}  // namespace

std::error_code SystemOpen(const NativePath& path, OpenMode mode, SystemHandle& handle) {
  SystemHandle opened = -1;
  const auto error = Around(FileStep::Open, [&](auto) { return RealOpen(path, mode, opened); });
  if (!error) handle = opened;
  if (error && opened != -1) static_cast<void>(RealClose(opened));
  return error;
}

std::error_code SystemStatus(SystemHandle handle, FileStatus& status) {
  return Around(FileStep::Status, [&](auto) { return RealStatus(handle, status); });
}

std::error_code SystemPathStatus(const NativePath& path, FileStatus& status) {
  return Around(FileStep::PathStatus, [&](auto) { return RealPathStatus(path, status); });
}

std::error_code SystemRead(SystemHandle handle, std::uint64_t offset, std::span<std::byte> buffer,
                           std::size_t& moved) {
  const auto read = [&](auto size) { return RealRead(handle, offset, buffer.first(size), moved); };
  return Around(FileStep::Read, read, buffer.size());
}

std::error_code SystemWrite(SystemHandle handle, std::uint64_t offset,
                            std::span<const std::byte> bytes, std::size_t& moved) {
  const auto write = [&](auto size) { return RealWrite(handle, offset, bytes.first(size), moved); };
  return Around(FileStep::Write, write, bytes.size());
}

std::error_code SystemSetLength(SystemHandle handle, std::uint64_t length) {
  return Around(FileStep::SetLength, [&](auto) { return RealSetLength(handle, length); });
}

std::error_code SystemFlush(SystemHandle handle) {
  return Around(FileStep::Flush, [&](auto) { return RealFlush(handle); });
}

std::error_code SystemClose(SystemHandle handle) {
  std::size_t none = 0;
  const auto fault = Inject(FileStep::Close, Moment::Before, none);
  const auto error = RealClose(handle);
  const auto late = fault ? fault : Inject(FileStep::Close, Moment::After, none);
  return late ? late : error;
}

std::error_code SystemRemove(const NativePath& path) {
  return Around(FileStep::Remove, [&](auto) { return RealRemove(path); });
}

}  // namespace corvane
