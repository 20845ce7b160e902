// The program on the screen: its windows, boxes and dialogs stand behind the display record. Each
// display has these two in a Program.cpp of its own.
#pragma once

#include "services/Form.h"

namespace corvane {

/// Opens the main form and returns the exit code when it is unloaded or the program is ended.
int RunProgram(int argc, char** argv, Form& form);

void SystemBeep();

}  // namespace corvane
