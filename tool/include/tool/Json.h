// The lossless text form of the tables and of a BTD file. docs/json-format.md describes it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/Result.h"
#include "tool/Layer.h"

namespace corvane {

constexpr std::size_t MaxJsonSize = std::size_t{1} << 20;  // bytes; far more than the tool writes

[[nodiscard]] std::string TablesToJson(const Layer& layer);  // the four tables, no map files
[[nodiscard]] std::string BtdToJson(const MapFile& file);

struct JsonDocument {
  bool IsBtd = false;
  Layer Tables;  // if IsBtd is false
  MapFile Btd;   // if IsBtd is true
};

/// Reads either form. A failure begins with its place as a JSON pointer.
[[nodiscard]] Result<JsonDocument, std::string> ParseJson(std::string_view text);

}  // namespace corvane
