// Single steps of the system on a file. RawFile is made from them and adds what all systems share:
// loops over short transfers, range checks, injected faults.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <system_error>

#include "base/RawFile.h"

namespace corvane {

using SystemHandle = std::intptr_t;

/// Never blocks. To write, it fails for whatever is not an ordinary file.
[[nodiscard]] std::error_code SystemOpen(const std::string& path, OpenMode mode,
                                         SystemHandle& handle);
[[nodiscard]] std::error_code SystemLength(SystemHandle handle, std::uint64_t& length);
/// One transfer, which may be short; `moved` is 0 at the file's end.
[[nodiscard]] std::error_code SystemRead(SystemHandle handle, std::uint64_t offset,
                                         std::span<std::byte> buffer, std::size_t& moved);
[[nodiscard]] std::error_code SystemWrite(SystemHandle handle, std::uint64_t offset,
                                          std::span<const std::byte> bytes, std::size_t& moved);
[[nodiscard]] std::error_code SystemSetLength(SystemHandle handle, std::uint64_t length);
[[nodiscard]] std::error_code SystemFlush(SystemHandle handle);
/// The handle is gone afterwards, also if this fails.
[[nodiscard]] std::error_code SystemClose(SystemHandle handle);
[[nodiscard]] std::error_code SystemRemove(const std::string& path);

/// The system's message for an error, in UTF-8, without a period.
[[nodiscard]] std::string SystemMessage(std::error_code error);
/// True if the file was refused because another program has it open or runs it.
[[nodiscard]] bool IsInUse(std::error_code error);

}  // namespace corvane
