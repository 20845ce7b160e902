#include "tool/WholeFile.h"

#include <algorithm>
#include <cstdint>
#include <span>

#include "Paths.h"
#include "base/FileRanges.h"
#include "base/RawFile.h"

namespace corvane {
namespace {

constexpr std::uint64_t MaxLength = std::uint64_t{64} << 20;  // bytes; above any file of the tool

std::error_code Truncate(const std::string& path, std::size_t length) {
  RawFile file;
  if (const auto error = file.Open(path, OpenMode::Change)) return error;
  if (const auto error = file.SetLength(length)) return error;
  if (const auto error = file.Flush()) return error;
  return file.Close();
}

}  // namespace

Result<void, std::string> WriteWhole(const std::string& path, std::string_view text) {
  const std::uint64_t oldLength = FileLength(path);
  if (oldLength > MaxLength)
    return FailureMessage({FileAction::Save, path, make_error_code(std::errc::file_too_large)});
  // Pads the text with blank lines to the old length: if truncating fails, the text is complete.
  std::string bytes(text);
  bytes.resize(std::max(bytes.size(), static_cast<std::size_t>(oldLength)), '\n');
  const WriteRange whole{0, std::as_bytes(std::span(bytes))};
  const Result<> saved = SaveInPlace(path, {&whole, 1}, IfMissing::Create);
  if (!saved.Done()) return FailureMessage(saved.Error());
  if (bytes.size() == text.size()) return {};
  const std::error_code error = Truncate(path, text.size());
  if (!error) return {};
  return path + " could not be truncated: " + ReasonText(error) +
         ". It holds the new contents, possibly followed by blank lines.";
}

}  // namespace corvane
