#include "Browser.h"

#include <windows.h>

#include <shellapi.h>

#include "base/WideText.h"

namespace corvane {

std::error_code OpenInBrowser(const std::string& path) {
  constexpr INT_PTR MaxError = 32;
  const HINSTANCE result =
      ::ShellExecuteW(nullptr, L"open", TextToWide(path).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
  if (reinterpret_cast<INT_PTR>(result) > MaxError) return {};
  return {static_cast<int>(::GetLastError()), std::system_category()};
}

}  // namespace corvane
