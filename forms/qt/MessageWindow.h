// The message box: a text of any length, whole and to be copied, with its buttons always in sight.
#pragma once

#include <string>

#include "Display.h"

class QWidget;

namespace corvane {

MessageAnswer ShowMessageBox(QWidget* owner, const std::string& text, MessageButtons buttons);

}  // namespace corvane
