// A save as the user meets it: asked about what it would lose, told why it failed.
#pragma once

#include <functional>
#include <string>

#include "data/GameFolder.h"

namespace corvane {

/// Runs `save` for the file at `path`; where another program has changed the file, asks, and on Yes
/// saves over those changes. True if the file was saved. The user has been told of a failure.
[[nodiscard]] bool SaveAndTell(const std::string& path,
                               const std::function<Result<>(OthersChanges)>& save);

}  // namespace corvane
