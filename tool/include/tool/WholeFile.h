// Writes the tool's JSON files. Unlike the game's files, they are replaced and truncated.
#pragma once

#include <string>
#include <string_view>

#include "base/Result.h"

namespace corvane {

/// Replaces the contents of a file with `text`; creates a missing file. A failure is a message that
/// says what failed and the state of the file. Readers of the file must tolerate trailing blank
/// lines: while a longer file is replaced, and after some failures, the file ends in them.
[[nodiscard]] Result<void, std::string> WriteWhole(const std::string& path, std::string_view text);

}  // namespace corvane
