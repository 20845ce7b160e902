// Lists the controls of a form for the bare windows.
#pragma once

#include "ControlList.h"
#include "services/Form.h"

namespace corvane {

[[nodiscard]] std::vector<ListedControl> ListControls(const Form& form);

}  // namespace corvane
