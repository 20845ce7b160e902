// System functions that some supported versions of Windows lack.
#pragma once

#include <windows.h>

namespace corvane {

/// A function by name in a loaded library, or nullptr.
template <class Function>
[[nodiscard]] Function SystemFunction(const wchar_t* library, const char* name) {
  const FARPROC found = GetProcAddress(GetModuleHandleW(library), name);
  return reinterpret_cast<Function>(reinterpret_cast<void*>(found));
}

}  // namespace corvane
