// The installed game's folder from the registry, which is only read.
#include "base/InstallRegistry.h"

#include <windows.h>

#include "base/WideText.h"

namespace corvane {

std::optional<std::string> ReadInstalledTo() {
  // The installer of a 32-bit game wrote into the view of 32-bit programs.
  constexpr REGSAM Access = KEY_QUERY_VALUE | KEY_ENUMERATE_SUB_KEYS | KEY_WOW64_32KEY;
  HKEY key = nullptr;
  if (::RegOpenKeyExA(HKEY_LOCAL_MACHINE, InstallKey, 0, Access, &key) != ERROR_SUCCESS)
    return std::nullopt;
  std::string value(InstallValueLimit, ' ');
  DWORD type = 0;
  DWORD size{InstallValueLimit};
  const auto result = ::RegQueryValueExA(key, InstallValue, nullptr, &type,
                                         reinterpret_cast<BYTE*>(value.data()), &size);
  ::RegCloseKey(key);
  if (result != ERROR_SUCCESS) return std::nullopt;
  value.resize(size);  // a value may lack its NUL
  return WideToText(BytesToWide(CP_ACP, value.substr(0, value.find('\0'))));
}

}  // namespace corvane
