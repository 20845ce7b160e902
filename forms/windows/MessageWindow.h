// The message box: the system's own, or one that scrolls for a text that is too long for that.
#pragma once

#include <windows.h>

#include <string>

#include "Display.h"

namespace corvane {

MessageAnswer ShowMessageBox(HWND owner, const std::string& text, MessageButtons buttons);

}  // namespace corvane
