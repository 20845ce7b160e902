// Single file operations of the system. RawFile builds on them and adds what all systems share:
// range checks and loops over short transfers. The tests inject faults into these operations.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <system_error>

#include "base/RawFile.h"

namespace corvane {

using SystemHandle = std::intptr_t;

[[nodiscard]] NativePath ToNativePath(const std::string& path);

/// Never blocks.
[[nodiscard]] std::error_code SystemOpen(const NativePath& path, OpenMode mode,
                                         SystemHandle& handle);
[[nodiscard]] std::error_code SystemStatus(SystemHandle handle, FileStatus& status);
/// The status of a path, following links. Fails if it cannot be determined.
[[nodiscard]] std::error_code SystemPathStatus(const NativePath& path, FileStatus& status);
/// One transfer, which may be short; `moved` is 0 at the end of the file.
[[nodiscard]] std::error_code SystemRead(SystemHandle handle, std::uint64_t offset,
                                         std::span<std::byte> buffer, std::size_t& moved);
[[nodiscard]] std::error_code SystemWrite(SystemHandle handle, std::uint64_t offset,
                                          std::span<const std::byte> bytes, std::size_t& moved);
[[nodiscard]] std::error_code SystemSetLength(SystemHandle handle, std::uint64_t length);
[[nodiscard]] std::error_code SystemFlush(SystemHandle handle);
/// Invalidates the handle even if this fails.
[[nodiscard]] std::error_code SystemClose(SystemHandle handle);
[[nodiscard]] std::error_code SystemRemove(const NativePath& path);

/// The system's message for an error, in UTF-8, without a period.
[[nodiscard]] std::string SystemMessage(std::error_code error);
/// A probable cause of an error on this file, or a remedy; empty if neither is known.
[[nodiscard]] std::string SystemHint(std::error_code error, const std::string& path);

}  // namespace corvane
