// The system's ANSI code page, without best-fit mapping, which replaces letters with look-alikes.
#include "base/AnsiText.h"

#include <windows.h>

#include "base/WideText.h"

namespace corvane {
namespace {

/// A field has one byte per character, and every byte must survive the round trip. Code pages with
/// longer characters (East Asian ones, UTF-8) cannot guarantee that.
UINT OneByteCodePage() {
  constexpr UINT WesternEuropean = 1252;
  CPINFO info{};
  const bool fits = ::GetCPInfo(CP_ACP, &info) != 0 && info.MaxCharSize == 1;
  return fits ? ::GetACP() : WesternEuropean;
}

bool IsSecondHalf(wchar_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

}  // namespace

std::string AnsiToText(std::string_view bytes) {
  return WideToText(BytesToWide(OneByteCodePage(), bytes));
}

std::string TextToAnsi(std::string_view text) {
  std::wstring wide = TextToWide(text);
  std::erase_if(wide, IsSecondHalf);  // otherwise such a character becomes "??"
  std::string bytes(wide.size(), '\0');
  const int size = ::WideCharToMultiByte(OneByteCodePage(), WC_NO_BEST_FIT_CHARS, wide.data(),
                                         static_cast<int>(wide.size()), bytes.data(),
                                         static_cast<int>(bytes.size()), "?", nullptr);
  bytes.resize(static_cast<std::size_t>(size));
  return bytes;
}

}  // namespace corvane
