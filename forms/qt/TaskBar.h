// Keeps dialogs out of the task bar, where only the main window belongs.
#pragma once

namespace corvane {

/// From now on every dialog that opens stays out, where the windowing system knows how.
void KeepDialogsOutOfTaskBar();

}  // namespace corvane
