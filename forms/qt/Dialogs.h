// What asks the user: the message box, which shows a text of any length whole and to be copied,
// with its buttons always in sight, and the open and the save dialog, as the settings ask for them.
#pragma once

#include <QFileDialog>
#include <string>

#include "services/Display.h"

namespace corvane {

MessageAnswer ShowMessageBox(QWidget* owner, const std::string& text, MessageButtons buttons);
void ShowFileDialog(QWidget* owner, CommonDialog& settings, QFileDialog::AcceptMode mode);

}  // namespace corvane
