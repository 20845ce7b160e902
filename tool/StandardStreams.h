// The system services that main needs: the arguments and the two output streams.
#pragma once

#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace corvane {

enum class Stream { Output, Errors };

/// Writes the bytes unchanged, without translating line ends; on a Windows console, as text.
[[nodiscard]] std::error_code WriteStream(Stream stream, std::string_view bytes);

/// True if the stream is a terminal and, on Windows, can show colours, which this enables.
[[nodiscard]] bool SupportsColour(Stream stream);

/// The arguments after the program's name, in UTF-8. On Windows, where the shell does not, expands
/// wildcards in file names; keeps a pattern that matches nothing.
[[nodiscard]] std::vector<std::string> ProgramArguments(int argc, char** argv);

}  // namespace corvane
