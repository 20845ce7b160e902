#include "base/WideText.h"

#include <windows.h>

#include <iterator>

namespace corvane {
namespace {

/// Removes the first character of `text`, which must not be empty, and appends it to `wide`.
/// Versions of Windows differ in how they convert invalid bytes, so this converts one character at
/// a time.
void TakeCharacter(std::string_view& text, std::wstring& wide) {
  constexpr int LongestForm = 4;
  wchar_t units[2];
  int size = 0;
  int count = 0;
  while (count == 0 && size < LongestForm && static_cast<std::size_t>(size) < text.size()) {
    count = ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), ++size, units,
                                  static_cast<int>(std::size(units)));
  }
  if (count == 0) {
    wide += L'\xFFFD';
    size = 1;
  }
  wide.append(units, static_cast<std::size_t>(count));
  text.remove_prefix(static_cast<std::size_t>(size));
}

}  // namespace

std::wstring TextToWide(std::string_view text) {
  std::wstring wide;
  while (!text.empty()) TakeCharacter(text, wide);
  return wide;
}

std::string WideToText(std::wstring_view wide) {
  constexpr std::size_t MaxBytesPerUnit = 3;
  std::string text(wide.size() * MaxBytesPerUnit, '\0');
  const int size =
      ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), text.data(),
                            static_cast<int>(text.size()), nullptr, nullptr);
  text.resize(static_cast<std::size_t>(size));
  return text;
}

std::wstring BytesToWide(unsigned codePage, std::string_view bytes) {
  std::wstring wide(bytes.size(), L'\0');
  const int size = ::MultiByteToWideChar(codePage, 0, bytes.data(), static_cast<int>(bytes.size()),
                                         wide.data(), static_cast<int>(wide.size()));
  wide.resize(static_cast<std::size_t>(size));
  return wide;
}

}  // namespace corvane
