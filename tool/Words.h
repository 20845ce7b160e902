// Words that listings and differences share.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tool/Layer.h"
#include "tool/Text.h"

namespace corvane {

/// "map 003 Havrune.BTD", made fit for a terminal.
[[nodiscard]] std::string MapName(const Layer& layer, int map);

/// The number of a connection's arrow, which may be any: "007", "-2"; "none" for no connection.
[[nodiscard]] std::string ArrowNumber(std::int32_t arrow);

/// "minor objective", or "kind 7".
[[nodiscard]] std::string KindName(std::int32_t kind);

/// "01 DC"
[[nodiscard]] std::string HexBytes(std::span<const char> bytes);
[[nodiscard]] std::string HexBytes(std::span<const std::uint8_t> bytes);

/// The bytes of a text field between its first NUL and the NULs that fill it up.
[[nodiscard]] std::string_view BehindNul(std::span<const char> field);

/// The text of a field in quotes, and in hexadecimal what stands behind its NUL.
[[nodiscard]] std::string QuotedField(std::span<const char> field);

/// The lines of a briefing, in quotes. The lines end with CR LF; a CR or LF alone stands in a line.
[[nodiscard]] Lines BriefLines(std::span<const char> field);

}  // namespace corvane
