// Byte ranges of one file, read whole or replaced in place. Every file of the game and every patch
// file goes through here.
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
  std::span<const std::byte> Known = {};  // what others must not have changed, if anything
};

enum class IfMissing { Fail, Create };

/// Fills every range; bytes that the file does not reach become zero. After a failure the ranges
/// hold anything.
[[nodiscard]] Result<> ReadRanges(const std::string& path, std::span<const ReadRange> ranges);

/// Replaces the ranges, leaves every other byte, never shortens the file, and returns when the disk
/// has the bytes. Where the file, as far as it reaches, does not hold what is Known, the save fails
/// with ChangedByAnother. After a failure the old bytes and length are put back, or a new file is
/// removed again; the failure tells the state of the file. Signals that end the program wait.
[[nodiscard]] Result<> SaveInPlace(const std::string& path, std::span<const WriteRange> ranges,
                                   IfMissing ifMissing);

}  // namespace corvane
