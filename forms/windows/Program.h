// The program on the screen: its windows, boxes and dialogs stand behind the display record.
#pragma once

#include "Form.h"

namespace corvane {

/// Opens the main form and returns the exit code when it is unloaded or the program is ended.
int RunProgram(int argc, char** argv, Form& form);

void SystemBeep();

}  // namespace corvane
