// Keeps dialogs out of the task bar, which shows only the main window.
#pragma once

namespace corvane {

/// From now on, new dialogs stay out of the task bar if the windowing system supports it.
void KeepDialogsOutOfTaskBar();

}  // namespace corvane
