// Raw bytes of one file, at offsets from 0. All access to the contents of files goes through this
// class.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <system_error>

namespace corvane {

/// A path in the form that the system's calls use.
using NativePath = std::filesystem::path::string_type;

enum class OpenMode {
  Read,
  Change,  // read and write a file that exists; never shortens it
  Create,  // read and write a new file; fails if the path exists
};

/// Identifies a file, whatever its name.
using FileIdentity = std::array<std::uint64_t, 2>;

enum class FileType { None, Ordinary, Folder, Other };

struct FileStatus {
  FileType Type = FileType::None;
  std::uint64_t Length = 0;  // bytes
  FileIdentity Identity{};
  std::int64_t Written = 0;  // when its contents last changed, in the system's finest unit
};

/// An open file. Every operation returns the system's error. Offsets and lengths are in bytes.
class RawFile {
 public:
  RawFile() = default;
  RawFile(const RawFile&) = delete;
  RawFile& operator=(const RawFile&) = delete;
  ~RawFile();

  /// Never blocks. Fails while a file is open. May open something other than an ordinary file.
  [[nodiscard]] std::error_code Open(const std::string& path, OpenMode mode);
  /// Opens the file at the path of the last Open. Like all operations below, allocates nothing.
  [[nodiscard]] std::error_code Reopen(OpenMode mode);
  [[nodiscard]] std::error_code Status(FileStatus& status);
  /// The current status of the path of the last Open; of type None if it does not exist.
  [[nodiscard]] std::error_code PathStatus(FileStatus& status) const;
  /// Reads until the buffer is full or the file ends; `read` is the number of bytes read.
  [[nodiscard]] std::error_code ReadAt(std::uint64_t offset, std::span<std::byte> buffer,
                                       std::size_t& read);
  /// Writes all of `bytes` or fails.
  [[nodiscard]] std::error_code WriteAt(std::uint64_t offset, std::span<const std::byte> bytes);
  /// Truncates or zero-extends the file.
  [[nodiscard]] std::error_code SetLength(std::uint64_t length);
  /// Returns once the disk has the written bytes.
  [[nodiscard]] std::error_code Flush();
  /// Closes the file even if this fails; written bytes may then be lost.
  [[nodiscard]] std::error_code Close();
  /// Removes the file at the path of the last Open.
  [[nodiscard]] std::error_code Remove() const;
  [[nodiscard]] bool IsOpen() const { return Handle != NoHandle; }

 private:
  static constexpr std::intptr_t NoHandle = -1;
  std::intptr_t Handle = NoHandle;
  NativePath Path;
};

/// Removes a file, or a link without its target. Returns the system's error.
[[nodiscard]] std::error_code RemoveFile(const std::string& path);

/// The status of a path; of type None if it does not exist or cannot be determined.
[[nodiscard]] FileStatus StatusAt(const std::string& path);

/// True if both paths name the same existing file.
[[nodiscard]] bool IsSameFile(const std::string& left, const std::string& right);

}  // namespace corvane
