// The system's browser.
#pragma once

#include <string>
#include <system_error>

namespace corvane {

/// Opens a page in the system's default browser and does not wait for it. `path` is absolute and
/// passes through no shell. Returns the system's error if nothing can be started.
[[nodiscard]] std::error_code OpenInBrowser(const std::string& path);

}  // namespace corvane
