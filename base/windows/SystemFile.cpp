// Single steps on a file through the calls of Windows.
#include "SystemFile.h"

#include <windows.h>

#include <algorithm>
#include <iterator>

#include "base/WideText.h"

namespace corvane {
namespace {

std::error_code LastError() { return {static_cast<int>(::GetLastError()), std::system_category()}; }

HANDLE Native(SystemHandle handle) { return reinterpret_cast<HANDLE>(handle); }

/// Makes a transfer start at an offset, whatever the handle's own place is.
OVERLAPPED At(std::uint64_t offset) {
  constexpr unsigned HighHalf = 32;
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> HighHalf);
  return place;
}

DWORD OneTransfer(std::size_t size) {
  constexpr std::size_t Largest = std::size_t{1} << 30;
  return static_cast<DWORD>(std::min(size, Largest));
}

HANDLE OpenNative(const std::wstring& path, OpenMode mode) {
  const bool writes = mode != OpenMode::Read;
  const DWORD access = writes ? GENERIC_READ | GENERIC_WRITE : GENERIC_READ;
  const DWORD others = writes ? FILE_SHARE_READ : FILE_SHARE_READ | FILE_SHARE_WRITE;
  const DWORD which = mode == OpenMode::Create ? CREATE_NEW : OPEN_EXISTING;
  return ::CreateFileW(path.c_str(), access, others, nullptr, which, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
}

/// The reason of an open that failed. Of a folder the system only says that access is denied.
std::error_code OpenError(const std::wstring& path) {
  const std::error_code error = LastError();
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  const bool folder =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  return folder ? std::make_error_code(std::errc::is_a_directory) : error;
}

}  // namespace

std::error_code SystemOpen(const std::string& path, OpenMode mode, SystemHandle& handle) {
  const std::wstring wide = TextToWide(path);
  // Behind the drive's a colon would open a stream beside the file's own contents.
  if (wide.find(L':', 2) != wide.npos) return {ERROR_INVALID_NAME, std::system_category()};
  const HANDLE opened = OpenNative(wide, mode);
  if (opened == INVALID_HANDLE_VALUE) return OpenError(wide);
  if (::GetFileType(opened) != FILE_TYPE_DISK) {
    ::CloseHandle(opened);
    return std::make_error_code(std::errc::invalid_argument);
  }
  handle = reinterpret_cast<SystemHandle>(opened);
  return {};
}

std::error_code SystemLength(SystemHandle handle, std::uint64_t& length) {
  LARGE_INTEGER size{};
  if (::GetFileSizeEx(Native(handle), &size) == 0) return LastError();
  length = static_cast<std::uint64_t>(size.QuadPart);
  return {};
}

std::error_code SystemRead(SystemHandle handle, std::uint64_t offset, std::span<std::byte> buffer,
                           std::size_t& moved) {
  OVERLAPPED place = At(offset);
  DWORD count = 0;
  const BOOL done =
      ::ReadFile(Native(handle), buffer.data(), OneTransfer(buffer.size()), &count, &place);
  if (done == 0 && ::GetLastError() != ERROR_HANDLE_EOF) return LastError();
  moved = count;
  return {};
}

std::error_code SystemWrite(SystemHandle handle, std::uint64_t offset,
                            std::span<const std::byte> bytes, std::size_t& moved) {
  OVERLAPPED place = At(offset);
  DWORD count = 0;
  const BOOL done =
      ::WriteFile(Native(handle), bytes.data(), OneTransfer(bytes.size()), &count, &place);
  if (done == 0) return LastError();
  moved = count;
  return {};
}

std::error_code SystemSetLength(SystemHandle handle, std::uint64_t length) {
  FILE_END_OF_FILE_INFO end{};
  end.EndOfFile.QuadPart = static_cast<LONGLONG>(length);
  const BOOL done =
      ::SetFileInformationByHandle(Native(handle), FileEndOfFileInfo, &end, sizeof end);
  return done != 0 ? std::error_code() : LastError();
}

std::error_code SystemFlush(SystemHandle handle) {
  return ::FlushFileBuffers(Native(handle)) != 0 ? std::error_code() : LastError();
}

std::error_code SystemClose(SystemHandle handle) {
  return ::CloseHandle(Native(handle)) != 0 ? std::error_code() : LastError();
}

std::error_code SystemRemove(const std::string& path) {
  return ::DeleteFileW(TextToWide(path).c_str()) != 0 ? std::error_code() : LastError();
}

std::string SystemMessage(std::error_code error) {
  if (error.category() != std::system_category()) return error.message();
  // The mask leaves out the line breaks.
  constexpr DWORD Form =
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
  wchar_t buffer[512];
  const DWORD size = ::FormatMessageW(Form, nullptr, static_cast<DWORD>(error.value()), 0, buffer,
                                      static_cast<DWORD>(std::size(buffer)), nullptr);
  if (size == 0) return "error " + std::to_string(error.value());
  const std::string words = WideToText({buffer, size});
  return words.substr(0, words.find_last_not_of(" .") + 1);
}

bool IsInUse(std::error_code error) {
  constexpr int Causes[] = {ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION, ERROR_USER_MAPPED_FILE};
  return error.category() == std::system_category() &&
         std::ranges::find(Causes, error.value()) != std::end(Causes);
}

}  // namespace corvane
