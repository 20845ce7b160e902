#include "base/FileRanges.h"

#include <algorithm>
#include <system_error>
#include <utility>
#include <vector>

#include "base/RawFile.h"

namespace corvane {
namespace {

class Save {
 public:
  Save(const std::string& path, std::span<const WriteRange> ranges) : Path(path), Ranges(ranges) {}

  std::error_code Open(IfMissing ifMissing);
  std::error_code RememberOld();
  std::error_code Replace();
  FileState Undo();

 private:
  std::error_code PutBack();
  std::error_code PutBackRange(std::size_t range);

  const std::string& Path;
  std::span<const WriteRange> Ranges;
  RawFile File;
  bool Created = false;
  bool FlushFailed = false;
  std::uint64_t OldLength = 0;
  std::vector<std::vector<std::byte>> OldBytes;  // of each range, as far as the file reached
};

std::error_code Save::Open(IfMissing ifMissing) {
  std::error_code error = File.Open(Path, OpenMode::Change);
  if (error == std::errc::no_such_file_or_directory && ifMissing == IfMissing::Create) {
    error = File.Open(Path, OpenMode::Create);
    Created = !error;
  }
  return error;
}

std::error_code Save::RememberOld() {
  if (Created) return {};
  if (std::error_code error = File.Length(OldLength)) return error;
  for (const WriteRange& range : Ranges) {
    std::vector<std::byte> old(range.Bytes.size());
    std::size_t read = 0;
    if (std::error_code error = File.ReadAt(range.Offset, old, read)) return error;
    old.resize(read);
    OldBytes.push_back(std::move(old));
  }
  return {};
}

std::error_code Save::Replace() {
  for (const WriteRange& range : Ranges) {
    if (std::error_code error = File.WriteAt(range.Offset, range.Bytes)) return error;
  }
  if (std::error_code error = File.Flush()) {
    FlushFailed = true;
    return error;
  }
  return File.Close();
}

// Undoes whatever Replace did and tells the state of the file.
FileState Save::Undo() {
  if (Created) {
    if (File.IsOpen()) static_cast<void>(File.Close());  // the file goes, whatever this says
    return RemoveFile(Path) ? FileState::NotRemoved : FileState::Removed;
  }
  if (!File.Changed()) return FileState::Unchanged;
  if (!File.IsOpen() && File.Open(Path, OpenMode::Change)) return FileState::Damaged;
  if (PutBack()) return FileState::Damaged;
  // A flush that failed once may succeed falsely when tried again, so it proves nothing then.
  return FlushFailed || File.Flush() || File.Close() ? FileState::Unconfirmed
                                                     : FileState::Unchanged;
}

std::error_code Save::PutBack() {
  std::uint64_t length = 0;
  if (std::error_code error = File.Length(length)) return error;
  if (length > OldLength) {
    if (std::error_code error = File.SetLength(OldLength)) return error;
  }
  for (std::size_t range = 0; range < Ranges.size(); ++range) {
    if (std::error_code error = PutBackRange(range)) return error;
  }
  return {};
}

// Writes only what differs: where the save was refused, the same bytes would be refused again.
std::error_code Save::PutBackRange(std::size_t range) {
  const std::vector<std::byte>& old = OldBytes[range];
  std::vector<std::byte> now(old.size());
  std::size_t read = 0;
  if (std::error_code error = File.ReadAt(Ranges[range].Offset, now, read)) return error;
  const auto first = std::mismatch(old.begin(), old.end(), now.begin()).first;
  const auto last = std::mismatch(old.rbegin(), old.rend(), now.rbegin()).first.base();
  if (first >= last) return {};
  const auto start = static_cast<std::size_t>(first - old.begin());
  return File.WriteAt(Ranges[range].Offset + start, std::span(first, last));
}

std::error_code Read(RawFile& file, const std::string& path, std::span<const ReadRange> ranges) {
  if (std::error_code error = file.Open(path, OpenMode::Read)) return error;
  for (const ReadRange& range : ranges) {
    std::size_t read = 0;
    if (std::error_code error = file.ReadAt(range.Offset, range.Bytes, read)) return error;
    std::ranges::fill(range.Bytes.subspan(read), std::byte{0});
  }
  return file.Close();
}

}  // namespace

Result<> ReadRanges(const std::string& path, std::span<const ReadRange> ranges) {
  RawFile file;
  if (std::error_code error = Read(file, path, ranges))
    return Failure{FileAction::Read, path, error};
  return {};
}

Result<> SaveInPlace(const std::string& path, std::span<const WriteRange> ranges,
                     IfMissing ifMissing) {
  Save save(path, ranges);
  std::error_code error = save.Open(ifMissing);
  if (!error) error = save.RememberOld();
  if (error) {
    const bool missing = error == std::errc::no_such_file_or_directory;
    return Failure{FileAction::Save, path, error,
                   missing ? FileState::NotCreated : FileState::Unchanged};
  }
  error = save.Replace();
  if (error) return Failure{FileAction::Save, path, error, save.Undo()};
  return {};
}

}  // namespace corvane
