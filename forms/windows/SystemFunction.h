// Functions of the system that versions of it lack which the program still starts on.
#pragma once

#include <windows.h>

namespace corvane {

/// A function by its name in a library that is loaded, or nullptr.
template <class Function>
[[nodiscard]] Function SystemFunction(const wchar_t* library, const char* name) {
  const FARPROC found = GetProcAddress(GetModuleHandleW(library), name);
  return reinterpret_cast<Function>(reinterpret_cast<void*>(found));
}

}  // namespace corvane
