#include "StandardStreams.h"

#include <windows.h>

#include <shellapi.h>

#include <algorithm>

#include "base/WideText.h"

namespace corvane {
namespace {

#ifndef ENABLE_VIRTUAL_TERMINAL_PROCESSING
constexpr DWORD ENABLE_VIRTUAL_TERMINAL_PROCESSING = 4;
#endif

HANDLE HandleOf(Stream stream) {
  return ::GetStdHandle(stream == Stream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

std::error_code LastError() { return {static_cast<int>(::GetLastError()), std::system_category()}; }

std::error_code WriteConsoleText(HANDLE console, std::string_view text) {
  constexpr std::size_t MaxUnits = 8192;  // a console refuses much larger writes
  const std::wstring wide = TextToWide(text);
  for (std::wstring_view rest = wide; !rest.empty();) {
    DWORD written = 0;
    const auto units = static_cast<DWORD>(std::min(rest.size(), MaxUnits));
    if (!::WriteConsoleW(console, rest.data(), units, &written, nullptr)) return LastError();
    rest.remove_prefix(written);
  }
  return {};
}

// The paths of the files that match a wildcard in the last part of `path`; none if it has no
// wildcard.
std::vector<std::string> Matches(std::wstring_view path) {
  const std::size_t title = path.find_last_of(L"/\\:") + 1;
  if (path.find_first_of(L"*?", title) == path.npos) return {};
  std::vector<std::string> names;
  WIN32_FIND_DATAW found;
  const HANDLE search = ::FindFirstFileW(std::wstring(path).c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return names;
  do {
    const std::wstring_view name = found.cFileName;
    if (name != L"." && name != L"..")
      names.push_back(WideToText(std::wstring(path.substr(0, title)).append(name)));
  } while (::FindNextFileW(search, &found));
  ::FindClose(search);
  std::ranges::sort(names);
  return names;
}

}  // namespace

std::error_code WriteStream(Stream stream, std::string_view bytes) {
  const HANDLE handle = HandleOf(stream);
  DWORD mode = 0;
  if (::GetConsoleMode(handle, &mode)) return WriteConsoleText(handle, bytes);
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto size = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1U << 20));
    if (!::WriteFile(handle, bytes.data(), size, &written, nullptr)) return LastError();
    bytes.remove_prefix(written);
  }
  return {};
}

bool SupportsColour(Stream stream) {
  const HANDLE handle = HandleOf(stream);
  DWORD mode = 0;
  return ::GetConsoleMode(handle, &mode) &&
         ::SetConsoleMode(handle, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

std::vector<std::string> ProgramArguments(int, char**) {
  std::vector<std::string> arguments;
  int count = 0;
  wchar_t** wide = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  if (wide == nullptr) return arguments;
  for (int i = 1; i < count; ++i) {
    std::vector<std::string> names = Matches(wide[i]);
    if (names.empty()) names.push_back(WideToText(wide[i]));
    std::ranges::move(names, std::back_inserter(arguments));
  }
  ::LocalFree(wide);
  return arguments;
}

}  // namespace corvane
