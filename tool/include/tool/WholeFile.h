// Text files of the tool's own (JSON, pictures), which are written whole. Unlike the game's files,
// they are shortened.
#pragma once

#include <string>
#include <string_view>

namespace corvane {

/// Makes `text` the contents of a file, which is created if it does not exist. Gives back the empty
/// text, or the sentences that tell what failed and how the file was left. The text must be one
/// that means the same with blank lines behind it: for a moment, a longer file holds these.
[[nodiscard]] std::string WriteWhole(const std::string& path, std::string_view text);

}  // namespace corvane
