// Screenshots.
#pragma once

#include <string>

namespace corvane {

/// Saves a picture of the topmost window as a PNG file; returns false on failure.
[[nodiscard]] bool SavePicture(const std::string& file);

}  // namespace corvane
