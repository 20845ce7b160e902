// Single file operations through the Windows API.
#include "SystemFile.h"

#include <windows.h>

#include <algorithm>
#include <iterator>

#include "base/Failure.h"
#include "base/WideText.h"

namespace corvane {
namespace {

std::error_code LastError() { return {static_cast<int>(::GetLastError()), std::system_category()}; }

HANDLE Native(SystemHandle handle) { return reinterpret_cast<HANDLE>(handle); }

/// The offset of a transfer, which then ignores the handle's file pointer.
OVERLAPPED At(std::uint64_t offset) {
  constexpr unsigned HighHalf = 32;
  OVERLAPPED place{};
  place.Offset = static_cast<DWORD>(offset);
  place.OffsetHigh = static_cast<DWORD>(offset >> HighHalf);
  return place;
}

/// The number of bytes to transfer in one call.
DWORD TransferSize(std::size_t size) {
  constexpr std::size_t Max = std::size_t{1} << 30;
  return static_cast<DWORD>(std::min(size, Max));
}

HANDLE OpenNative(const std::wstring& path, OpenMode mode) {
  const bool writes = mode != OpenMode::Read;
  const DWORD access = writes ? GENERIC_READ | GENERIC_WRITE : GENERIC_READ;
  const DWORD others = writes ? FILE_SHARE_READ : FILE_SHARE_READ | FILE_SHARE_WRITE;
  const DWORD which = mode == OpenMode::Create ? CREATE_NEW : OPEN_EXISTING;
  return ::CreateFileW(path.c_str(), access, others, nullptr, which, FILE_ATTRIBUTE_NORMAL,
                       nullptr);
}

/// The reason for a failed open. For a folder, the system reports only that access is denied.
std::error_code OpenError(const std::wstring& path) {
  const std::error_code error = LastError();
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  const bool folder =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  return folder ? std::make_error_code(std::errc::is_a_directory) : error;
}

/// True if a colon after the drive's own names an alternate data stream.
bool NamesAStream(const std::wstring& path) {
  constexpr std::wstring_view Verbatim = LR"(\\?\)";
  const std::size_t start = path.starts_with(Verbatim) ? Verbatim.size() : 0;
  return path.find(L':', start + 2) != path.npos;
}

FileType TypeOf(DWORD attributes) {
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return FileType::Folder;
  return (attributes & FILE_ATTRIBUTE_DEVICE) != 0 ? FileType::Other : FileType::Ordinary;
}

std::uint64_t Joined(DWORD high, DWORD low) { return std::uint64_t{high} << 32 | low; }

std::error_code StatusOf(HANDLE file, FileStatus& status) {
  BY_HANDLE_FILE_INFORMATION found{};
  if (::GetFileInformationByHandle(file, &found) == 0) return LastError();
  status = {TypeOf(found.dwFileAttributes),
            Joined(found.nFileSizeHigh, found.nFileSizeLow),
            {found.dwVolumeSerialNumber, Joined(found.nFileIndexHigh, found.nFileIndexLow)},
            static_cast<std::int64_t>(
                Joined(found.ftLastWriteTime.dwHighDateTime, found.ftLastWriteTime.dwLowDateTime))};
  return {};
}

bool IsAbsent(std::error_code error) {
  constexpr int Names[] = {ERROR_INVALID_NAME, ERROR_BAD_PATHNAME, ERROR_DIRECTORY};
  return error == std::errc::no_such_file_or_directory ||
         std::ranges::find(Names, error.value()) != std::end(Names);
}

bool IsInUse(std::error_code error) {
  constexpr int Causes[] = {ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION, ERROR_USER_MAPPED_FILE};
  return std::ranges::find(Causes, error.value()) != std::end(Causes);
}

bool IsUnderProgramFiles(const std::string& path) {
  const std::wstring wide = TextToWide(path);
  for (const wchar_t* name : {L"ProgramFiles", L"ProgramFiles(x86)", L"ProgramW6432"}) {
    wchar_t folder[MAX_PATH];
    const DWORD size = ::GetEnvironmentVariableW(name, folder, MAX_PATH);
    if (size == 0 || size >= MAX_PATH || wide.size() <= size) continue;
    const auto length = static_cast<int>(size);
    if (::CompareStringOrdinal(wide.data(), length, folder, length, TRUE) == CSTR_EQUAL)
      return true;
  }
  return false;
}

}  // namespace

NativePath ToNativePath(const std::string& path) { return TextToWide(path); }

std::error_code SystemOpen(const NativePath& path, OpenMode mode, SystemHandle& handle) {
  if (NamesAStream(path)) return {ERROR_INVALID_NAME, std::system_category()};
  const HANDLE opened = OpenNative(path, mode);
  if (opened == INVALID_HANDLE_VALUE) return OpenError(path);
  // A read from a device could block. Devices are never created, so there is nothing to remove.
  if (::GetFileType(opened) != FILE_TYPE_DISK) {
    ::CloseHandle(opened);
    return FileError::NotOrdinary;
  }
  handle = reinterpret_cast<SystemHandle>(opened);
  return {};
}

std::error_code SystemStatus(SystemHandle handle, FileStatus& status) {
  return StatusOf(Native(handle), status);
}

std::error_code SystemPathStatus(const NativePath& path, FileStatus& status) {
  constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  status = {};
  const HANDLE file = ::CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, ShareAll, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    const std::error_code error = LastError();
    return IsAbsent(error) ? std::error_code() : error;
  }
  const std::error_code error = StatusOf(file, status);
  ::CloseHandle(file);
  return error;
}

std::error_code SystemRead(SystemHandle handle, std::uint64_t offset, std::span<std::byte> buffer,
                           std::size_t& moved) {
  OVERLAPPED place = At(offset);
  DWORD count = 0;
  const BOOL done =
      ::ReadFile(Native(handle), buffer.data(), TransferSize(buffer.size()), &count, &place);
  if (done == 0 && ::GetLastError() != ERROR_HANDLE_EOF) return LastError();
  moved = count;
  return {};
}

std::error_code SystemWrite(SystemHandle handle, std::uint64_t offset,
                            std::span<const std::byte> bytes, std::size_t& moved) {
  OVERLAPPED place = At(offset);
  DWORD count = 0;
  const BOOL done =
      ::WriteFile(Native(handle), bytes.data(), TransferSize(bytes.size()), &count, &place);
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

std::error_code SystemRemove(const NativePath& path) {
  return ::DeleteFileW(path.c_str()) != 0 ? std::error_code() : LastError();
}

std::string SystemMessage(std::error_code error) {
  if (error.category() != std::system_category()) return error.message();
  // The width mask removes the line breaks.
  constexpr DWORD Flags =
      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
  wchar_t buffer[512];
  const DWORD size = ::FormatMessageW(Flags, nullptr, static_cast<DWORD>(error.value()), 0, buffer,
                                      static_cast<DWORD>(std::size(buffer)), nullptr);
  if (size == 0) return "error " + std::to_string(error.value());
  const std::string message = WideToText({buffer, size});
  return message.substr(0, message.find_last_not_of(" .") + 1);
}

std::string SystemHint(std::error_code error, const std::string& path) {
  if (error.category() != std::system_category()) return {};
  if (IsInUse(error)) return "it is open in another program, such as the game itself while it runs";
  if (error.value() == ERROR_ACCESS_DENIED && IsUnderProgramFiles(path))
    return "Windows protects this folder: start Corvane as administrator, or work on a copy of the "
           "game elsewhere";
  return {};
}

}  // namespace corvane
