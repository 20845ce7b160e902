// The system's registry, read only.
#include "base/Registry.h"

#include <windows.h>

#include "base/WideText.h"

namespace corvane {

std::optional<std::string> ReadRegistryFolder(const std::string& key, const std::string& name,
                                              std::size_t limit) {
  // The installer of the 32-bit game wrote to the view of 32-bit programs.
  constexpr REGSAM Access = KEY_QUERY_VALUE | KEY_ENUMERATE_SUB_KEYS | KEY_WOW64_32KEY;
  HKEY open = nullptr;
  if (::RegOpenKeyExA(HKEY_LOCAL_MACHINE, key.c_str(), 0, Access, &open) != ERROR_SUCCESS)
    return std::nullopt;
  std::string value(limit, ' ');
  DWORD type = 0;
  auto size = static_cast<DWORD>(limit);
  const auto result = ::RegQueryValueExA(open, name.c_str(), nullptr, &type,
                                         reinterpret_cast<BYTE*>(value.data()), &size);
  ::RegCloseKey(open);
  if (result != ERROR_SUCCESS) return std::nullopt;
  value.resize(size);  // a value may lack its NUL
  return WideToText(BytesToWide(CP_ACP, value.substr(0, value.find('\0'))));
}

}  // namespace corvane
