// Words that listings and differences share.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "tool/Layer.h"
#include "tool/Text.h"

namespace corvane {

/// "map 003 Havrune.BTD", safe for a terminal.
[[nodiscard]] std::string MapName(const Layer& layer, int map);

/// The arrow of a connection, which may be any number: "007", "-2"; "none" for no connection.
[[nodiscard]] std::string ArrowNumber(std::int32_t arrow);

/// "minor objective", or "kind 7".
[[nodiscard]] std::string KindName(VLKind kind);

/// "01 DC"
[[nodiscard]] std::string HexBytes(std::span<const char> bytes);
[[nodiscard]] std::string HexBytes(std::span<const std::uint8_t> bytes);

/// The bytes of a text field from its first NUL up to the trailing NULs; empty if there are none.
[[nodiscard]] std::string_view BytesAfterText(std::span<const char> field);

/// The text of a field in quotes, and any bytes after it in hexadecimal.
[[nodiscard]] std::string QuotedField(std::span<const char> field);

/// The lines of a briefing, in quotes. Lines end in CR LF; a CR or LF alone is part of a line.
[[nodiscard]] Lines BriefLines(std::span<const char> field);

}  // namespace corvane
