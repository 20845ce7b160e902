// A picture of what a person sees.
#pragma once

#include <string>

namespace corvane {

/// Writes a picture of the window in front as a PNG file; False if that failed.
[[nodiscard]] bool SavePicture(const std::string& file);

}  // namespace corvane
