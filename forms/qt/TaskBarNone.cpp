#include "TaskBar.h"

namespace corvane {

void KeepDialogsOutOfTaskBar() {}  // built without X11

}  // namespace corvane
