// The system's browser.
#pragma once

#include <string>
#include <system_error>

namespace corvane {

/// Has the system open a page in whatever it opens pages with, and does not wait for it. `path` is
/// absolute. No shell sees it.
[[nodiscard]] std::error_code OpenInBrowser(const std::string& path);

}  // namespace corvane
