// A JSON text as a tree, with what a hostile text may do refused on the way: great depth, a key
// given twice. A fault is told with its place as a JSON pointer.
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
