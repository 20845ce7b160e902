// Raw bytes of one ordinary file, at offsets from 0. The only way in which the program touches
// the contents of a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <system_error>

namespace corvane {

enum class OpenMode {
  Read,
  Change,  // read and write a file that exists; never shortens it
  Create,  // read and write a new file; fails if something stands there
};

enum class FileStep { Open, Length, Read, Write, SetLength, Flush, Close, Remove };

/// Asked ahead of every step on a file: an error fails the step before the system sees it
/// (but a close still gives the file up); a smaller `bytes` makes a read or a write a short one, as
/// systems may do.
using FileFault = std::function<std::error_code(FileStep step, std::size_t& bytes)>;
inline FileFault InjectedFault;  // empty but for tests that make files fail

/// An open file. Every operation gives back the system's error; offsets and lengths are in bytes.
class RawFile {
 public:
  RawFile() = default;
  RawFile(const RawFile&) = delete;
  RawFile& operator=(const RawFile&) = delete;
  ~RawFile();

  /// To write, refuses whatever is not an ordinary file; to read, folders and pipes are refused
  /// here or by the first read. Fails while a file is open.
  [[nodiscard]] std::error_code Open(const std::string& path, OpenMode mode);
  [[nodiscard]] std::error_code Length(std::uint64_t& length);
  /// Reads until the buffer is full or the file ends; `read` is the number of bytes that came.
  [[nodiscard]] std::error_code ReadAt(std::uint64_t offset, std::span<std::byte> buffer,
                                       std::size_t& read);
  /// Writes the whole of `bytes`, or fails.
  [[nodiscard]] std::error_code WriteAt(std::uint64_t offset, std::span<const std::byte> bytes);
  /// Truncates or zero-extends the file.
  [[nodiscard]] std::error_code SetLength(std::uint64_t length);
  /// Returns when the disk has what was written.
  [[nodiscard]] std::error_code Flush();
  /// The file is given up, also if this fails: then what was written may be lost.
  [[nodiscard]] std::error_code Close();
  [[nodiscard]] bool IsOpen() const { return Handle != NoHandle; }
  /// True once anything was written through this object.
  [[nodiscard]] bool Changed() const { return HasChanged; }

 private:
  static constexpr std::intptr_t NoHandle = -1;
  std::intptr_t Handle = NoHandle;
  bool HasChanged = false;
};

[[nodiscard]] std::error_code RemoveFile(const std::string& path);

}  // namespace corvane
