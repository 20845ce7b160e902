// What main needs of the system: its arguments, and the two streams that it writes.
#pragma once

#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace corvane {

enum class Stream { Output, Errors };

/// The bytes as they are, without translated line ends; on a console of Windows, as text.
[[nodiscard]] std::error_code WriteStream(Stream stream, std::string_view bytes);

/// True if the stream is a terminal that knows colours. May have to switch that on.
[[nodiscard]] bool KnowsColour(Stream stream);

/// The arguments behind the program's name, in UTF-8. On Windows, where no shell does it, a
/// wildcard in a name stands for the files that match, if there are any.
[[nodiscard]] std::vector<std::string> ProgramArguments(int count, char** arguments);

}  // namespace corvane
