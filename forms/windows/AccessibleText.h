// Names and descriptions of windows for screen readers, which would otherwise take a caption
// nearby. The system keeps them beyond the window, for whichever comes to have its handle, so each
// window takes its own back.
#pragma once

#include <windows.h>

#include <string>

namespace corvane {

void SetAccessibleName(HWND window, const std::wstring& name);
void SetAccessibleDescription(HWND window, const std::wstring& description);
void ForgetAccessibleText(HWND window);

}  // namespace corvane
