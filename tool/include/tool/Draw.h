// The command draw, and pages for files that are dropped on the program.
#pragma once

#include <functional>
#include <string>

#include "tool/Console.h"

namespace corvane {

struct DrawOptions {
  std::string Source;
  std::string Out;      // ends in .svg or .html
  std::string Against;  // a source, or empty
  std::string Game;
};

/// Writes a picture or a page, replacing an existing one.
[[nodiscard]] int Draw(const DrawOptions& options, const Console& console);

/// Draws, and redraws whenever a file that the picture shows changes. Calls `pause` between checks
/// of the files and stops when it returns false. Continues after a failed drawing.
[[nodiscard]] int WatchAndDraw(const DrawOptions& options, const Console& console,
                               const std::function<bool()>& pause);

/// Draws a page in a new temporary folder, prints its path and opens it in the system's browser.
[[nodiscard]] int ShowInBrowser(const std::string& source, const std::string& game,
                                const Console& console);

}  // namespace corvane
