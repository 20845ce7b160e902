// The functions that each display defines in its own Program.cpp. Windows, boxes and dialogs go
// through the Display record.
#pragma once

#include "services/Form.h"

namespace corvane {

/// Opens the main form. Returns the exit code when the form is unloaded or the program ends.
int RunProgram(int argc, char** argv, Form& form);

void SystemBeep();

}  // namespace corvane
