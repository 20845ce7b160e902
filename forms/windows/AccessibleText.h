// Names and descriptions of windows for screen readers, which would otherwise use a nearby caption.
// The system keeps them after the window is gone and applies them to the next window with the same
// handle, so each window must remove its own.
#pragma once

#include <windows.h>

#include <string>

namespace corvane {

void SetAccessibleName(HWND window, const std::wstring& name);
void SetAccessibleDescription(HWND window, const std::wstring& description);
void ClearAccessibleText(HWND window);

}  // namespace corvane
