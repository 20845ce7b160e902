#include "base/FileRanges.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

#include "SystemFile.h"
#include "base/RawFile.h"
#include "base/Signals.h"

namespace corvane {
namespace {

std::error_code CheckOrdinary(const FileStatus& found) {
  if (found.Type == FileType::Folder) return std::make_error_code(std::errc::is_a_directory);
  return found.Type == FileType::Ordinary ? std::error_code() : FileError::NotOrdinary;
}

/// One save. Allocates nothing from the first changed byte to the end of the undo, so the undo
/// cannot fail for lack of memory.
class Save {
 public:
  Save(const std::string& path, std::span<const WriteRange> ranges) : Path(path), Ranges(ranges) {}

  std::error_code Prepare(IfMissing ifMissing);
  std::error_code Replace();
  [[nodiscard]] FileState Undo();

 private:
  std::error_code Open(IfMissing ifMissing);
  std::error_code Create(std::error_code missing);
  std::error_code CheckFile();
  std::error_code ReadOldBytes();
  std::error_code CheckPath();
  [[nodiscard]] FileState UndoCreate();
  [[nodiscard]] FileState UndoChange();
  std::error_code Reopen();
  std::error_code Restore();
  std::error_code RestoreLength();
  std::error_code RestoreRange(std::size_t range);
  std::error_code ReadCurrent(std::size_t range, std::span<const std::byte>& current);
  [[nodiscard]] FileState Compare();

  const std::string& Path;
  std::span<const WriteRange> Ranges;
  RawFile File;
  bool Created = false;
  bool Attempted = false;  // a byte may have changed
  bool Restored = false;   // the undo has written
  bool FlushFailed = false;
  bool Gone = false;                             // the path named no file after the save
  FileState Unopened = FileState::Untouched;     // the state of a file that could not be opened
  FileStatus Old;                                // of type None until it is known
  std::vector<std::vector<std::byte>> OldBytes;  // of each range, as far as the file reached
  std::vector<std::byte> Buffer;                 // as large as the largest range
};

std::error_code Save::Prepare(IfMissing ifMissing) {
  if (std::error_code error = Open(ifMissing)) return error;
  if (std::error_code error = CheckFile()) return error;
  return ReadOldBytes();
}

std::error_code Save::Open(IfMissing ifMissing) {
  const std::error_code error = File.Open(Path, OpenMode::Change);
  if (!error) return {};
  FileStatus there;
  if (!File.PathStatus(there))
    Unopened = there.Type == FileType::None ? FileState::NotCreated : FileState::Unchanged;
  const bool missing = error == std::errc::no_such_file_or_directory;
  return missing && ifMissing == IfMissing::Create ? Create(error) : error;
}

std::error_code Save::Create(std::error_code missing) {
  const std::error_code error = File.Reopen(OpenMode::Create);
  if (!error) {
    Created = true;
    return {};
  }
  FileStatus there;
  const std::error_code unknown = File.PathStatus(there);
  const bool absent = !unknown && there.Type == FileType::None;
  const bool exists = error == std::errc::file_exists;
  Unopened = exists ? FileState::Unchanged : FileState::Unknown;
  if (absent) Unopened = FileState::NotCreated;
  return exists && absent ? missing : error;  // the path is a dangling link
}

std::error_code Save::CheckFile() {
  FileStatus found;
  if (std::error_code error = File.Status(found)) return error;
  if (std::error_code error = CheckOrdinary(found)) return error;
  Old = found;
  return {};
}

std::error_code Save::ReadOldBytes() {
  for (const WriteRange& range : Ranges) {
    std::vector<std::byte> old(range.Bytes.size());
    std::size_t read = 0;
    if (!Created) {
      if (std::error_code error = File.ReadAt(range.Offset, old, read)) return error;
    }
    old.resize(read);
    const auto known = range.Known.first(std::min(read, range.Known.size()));
    if (!std::equal(known.begin(), known.end(), old.begin())) return FileError::ChangedByAnother;
    Buffer.resize(std::max(Buffer.size(), read));
    OldBytes.push_back(std::move(old));
  }
  return {};
}

std::error_code Save::Replace() {
  Attempted = true;
  for (const WriteRange& range : Ranges) {
    if (std::error_code error = File.WriteAt(range.Offset, range.Bytes)) return error;
  }
  if (std::error_code error = File.Flush()) {
    FlushFailed = true;
    return error;
  }
  if (std::error_code error = CheckPath()) return error;
  return File.Close();
}

// Fails unless the path still names the file that was written.
std::error_code Save::CheckPath() {
  FileStatus there;
  if (std::error_code error = File.PathStatus(there)) return error;
  Gone = there.Type == FileType::None;
  if (Gone) return FileError::Removed;
  return there.Identity == Old.Identity ? std::error_code() : FileError::Replaced;
}

// Undoes the save and returns the state of the file.
FileState Save::Undo() {
  FileState state = File.IsOpen() ? FileState::Unchanged : Unopened;
  if (Created) {
    state = UndoCreate();
  } else if (Attempted) {
    state = UndoChange();  // even if the path is gone: the file may have another name
    if (Gone && !IsTorn(state)) state = FileState::Gone;
  }
  if (File.IsOpen()) static_cast<void>(File.Close());  // no longer affects the contents
  return state;
}

FileState Save::UndoCreate() {
  if (File.IsOpen()) static_cast<void>(File.Close());  // the file is removed even if this fails
  FileStatus there;
  if (Old.Type != FileType::None) {
    // Must not remove a file that another program has put there.
    if (File.PathStatus(there)) return FileState::Unknown;
    if (there.Type == FileType::None) return FileState::Removed;
    if (there.Identity != Old.Identity) return FileState::Unchanged;
  }
  if (!File.Remove()) return FileState::Removed;
  if (File.PathStatus(there)) return FileState::Unknown;
  return there.Type == FileType::None ? FileState::Removed : FileState::NotRemoved;
}

FileState Save::UndoChange() {
  if (!File.IsOpen() && Reopen()) return FileState::Unknown;
  const std::error_code failed = Restore();
  if (failed) {
    const FileState state = Compare();
    if (state != FileState::Unchanged) return state;
  }
  // After a failed flush, another one may succeed although data was lost.
  if (FlushFailed) return FileState::Unconfirmed;
  if (!Restored) return FileState::Unchanged;
  return File.Flush() || File.Close() ? FileState::Unconfirmed : FileState::Unchanged;
}

std::error_code Save::Reopen() {
  if (std::error_code error = File.Reopen(OpenMode::Change)) return error;
  Restored = true;  // the failed close may have lost written bytes
  FileStatus found;
  if (std::error_code error = File.Status(found)) return error;
  return found.Identity == Old.Identity ? std::error_code() : FileError::Replaced;
}

// Continues after a failure, to restore as much of the old file as possible.
std::error_code Save::Restore() {
  std::error_code failed = RestoreLength();
  for (std::size_t range = 0; range < Ranges.size(); ++range) {
    if (std::error_code error = RestoreRange(range)) failed = error;
  }
  return failed;
}

std::error_code Save::RestoreLength() {
  FileStatus now;
  if (std::error_code error = File.Status(now)) return error;
  if (now.Length <= Old.Length) return {};
  Restored = true;
  return File.SetLength(Old.Length);
}

// Reads the bytes of a range up to the end of the old file.
std::error_code Save::ReadCurrent(std::size_t range, std::span<const std::byte>& current) {
  const auto bytes = std::span(Buffer).first(OldBytes[range].size());
  std::size_t read = 0;
  if (std::error_code error = File.ReadAt(Ranges[range].Offset, bytes, read)) return error;
  current = bytes.first(read);
  return {};
}

// Writes only from the first differing byte to the last: a write that failed in the save would
// probably fail again.
std::error_code Save::RestoreRange(std::size_t range) {
  const std::vector<std::byte>& old = OldBytes[range];
  std::span<const std::byte> current;
  if (std::error_code error = ReadCurrent(range, current)) return error;
  const auto first = std::ranges::mismatch(old, current).in1;
  if (first == old.end()) return {};
  auto last = old.end();
  if (current.size() == old.size()) {
    while (*(last - 1) == current[static_cast<std::size_t>(last - 1 - old.begin())]) --last;
  }
  Restored = true;
  const auto start = static_cast<std::size_t>(first - old.begin());
  return File.WriteAt(Ranges[range].Offset + start, std::span(first, last));
}

FileState Save::Compare() {
  FileStatus now;
  if (File.Status(now)) return FileState::Unknown;
  if (now.Length != Old.Length) return FileState::Damaged;
  for (std::size_t range = 0; range < Ranges.size(); ++range) {
    std::span<const std::byte> bytes;
    if (ReadCurrent(range, bytes)) return FileState::Unknown;
    if (!std::ranges::equal(bytes, OldBytes[range])) return FileState::Damaged;
  }
  return FileState::Unchanged;
}

std::error_code Read(const std::string& path, std::span<const ReadRange> ranges,
                     FileStatus& found) {
  RawFile file;
  if (std::error_code error = file.Open(path, OpenMode::Read)) return error;
  if (std::error_code error = file.Status(found)) return error;
  if (std::error_code error = CheckOrdinary(found)) return error;
  for (const ReadRange& range : ranges) {
    std::size_t read = 0;
    if (std::error_code error = file.ReadAt(range.Offset, range.Bytes, read)) return error;
    std::ranges::fill(range.Bytes.subspan(read), std::byte{0});
  }
  return file.Close();
}

std::string LinkTarget(const std::string& path) {
  std::error_code none;  // set if it is not a link
  const auto target = std::filesystem::read_symlink(ToNativePath(path), none).u8string();
  return {target.begin(), target.end()};
}

}  // namespace

Result<std::uint64_t> ReadRanges(const std::string& path, std::span<const ReadRange> ranges) {
  FileStatus found;
  if (std::error_code error = Read(path, ranges, found))
    return Failure{FileAction::Read, path, error};
  return found.Length;
}

Result<> SaveInPlace(const std::string& path, std::span<const WriteRange> ranges,
                     IfMissing ifMissing) {
  const EndSignalGuard guard;
  Save save(path, ranges);
  std::error_code error = save.Prepare(ifMissing);
  if (!error) error = save.Replace();
  if (!error) return {};
  const FileState state = save.Undo();
  return Failure{FileAction::Save, path, error, state, LinkTarget(path)};
}

}  // namespace corvane
