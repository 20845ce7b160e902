// Parses JSON text into a tree. Refuses deep nesting and duplicate keys, which hostile text may
// contain. A failure begins with its place as a JSON pointer.
#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "base/Result.h"

namespace corvane {

[[nodiscard]] Result<nlohmann::json, std::string> ParseTree(std::string_view text);

/// A key as a part of a JSON pointer.
[[nodiscard]] std::string PointerPart(std::string_view key);

}  // namespace corvane
