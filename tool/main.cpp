#include <cstdlib>
#include <string_view>

#include "StandardStreams.h"
#include "base/Failure.h"
#include "base/Signals.h"
#include "tool/CommandLine.h"

using namespace corvane;

namespace {

// Results are written in a few large pieces. A write error is reported once, at the end.
std::string Pending;
std::error_code OutputError;

void Flush() {
  if (!OutputError) OutputError = WriteStream(Stream::Output, Pending);
  Pending.clear();
}

void Print(std::string_view text) {
  constexpr std::size_t PieceSize = std::size_t{64} << 10;
  Pending += text;
  if (Pending.size() >= PieceSize) Flush();
}

// Flushes the results first, so that a terminal shows both in order.
void PrintError(std::string_view text) {
  Flush();
  static_cast<void>(WriteStream(Stream::Errors, text));  // nowhere left to report it
}

bool IsSet(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr && *value != '\0';
}

bool WantsColour() {
  const char* terminal = std::getenv("TERM");
  const bool dumb = terminal != nullptr && std::string_view(terminal) == "dumb";
  return !IsSet("NO_COLOR") && !dumb && SupportsColour(Stream::Output);
}

}  // namespace

int main(int argc, char** argv) {
  IgnoreFileSizeSignal();
  const Console console{Print, PrintError, WantsColour()};
  const int status = RunTool(ProgramArguments(argc, argv), console);
  Flush();
  if (!OutputError) return status;
  return Fail(console, "standard output could not be written: " + ReasonText(OutputError) + ".");
}
