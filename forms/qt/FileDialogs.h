// The open and the save dialog, as the settings ask for them.
#pragma once

#include <QFileDialog>

#include "Display.h"

namespace corvane {

void ShowFileDialog(QWidget* owner, CommonDialog& settings, QFileDialog::AcceptMode mode);

}  // namespace corvane
