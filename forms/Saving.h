// Saves that ask before overwriting another program's changes, and report failures to the user.
#pragma once

#include <functional>
#include <string>

#include "data/GameFolder.h"

namespace corvane {

/// Runs `save` for the file at `path`. If another program has changed the file, asks, and on Yes
/// overwrites those changes. True if the file was saved. Shows any failure to the user.
[[nodiscard]] bool SaveAndReport(const std::string& path,
                                 const std::function<Result<>(OthersChanges)>& save);

}  // namespace corvane
