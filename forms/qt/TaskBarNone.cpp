#include "TaskBar.h"

namespace corvane {

void KeepDialogsOutOfTaskBar() {}  // no X11 to tell

}  // namespace corvane
