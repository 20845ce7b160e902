// Reads and replaces byte ranges of one file. All access to the game's files and to patch files
// uses these functions.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "base/Result.h"

namespace corvane {

struct ReadRange {
  std::uint64_t Offset = 0;
  std::span<std::byte> Bytes;
};

struct WriteRange {
  std::uint64_t Offset = 0;
  std::span<const std::byte> Bytes;
  std::span<const std::byte> Known = {};  // bytes that must still be in the file; may be empty
};

enum class IfMissing { Fail, Create };

/// Fills every range and returns the length of the file in bytes. Bytes past its end are zero.
/// After a failure the contents of the ranges are unspecified.
[[nodiscard]] Result<std::uint64_t> ReadRanges(const std::string& path,
                                               std::span<const ReadRange> ranges);

/// Replaces the ranges and no other byte, never shortens the file, and returns once the disk has
/// the bytes. Fails with ChangedByAnother if the file, as far as it reaches, differs from Known. A
/// failure restores the old bytes and length, or removes a new file, and reports the state of the
/// file. Signals that would end the program are held back.
[[nodiscard]] Result<> SaveInPlace(const std::string& path, std::span<const WriteRange> ranges,
                                   IfMissing ifMissing);

}  // namespace corvane
