// The verb draw, and a page of a file that is dropped on the program.
#pragma once

#include <functional>
#include <string>

#include "tool/Console.h"

namespace corvane {

struct DrawOptions {
  std::string Source;
  std::string Out;      // ends in .svg or .html
  std::string Against;  // a source; empty for none
  std::string Game;
};

/// Writes a picture or a page, replacing an existing one.
[[nodiscard]] int Draw(const DrawOptions& options, const Console& console);

/// Draws, and draws again whenever a file has changed that the picture shows. `pause` runs between
/// two looks at the files and ends the watch by False. A failed drawing does not end it.
[[nodiscard]] int WatchAndDraw(const DrawOptions& options, const Console& console,
                               const std::function<bool()>& pause);

/// Draws a page in a new folder among the temporary ones, prints its path, and opens it in the
/// system's browser.
[[nodiscard]] int ShowInBrowser(const std::string& source, const std::string& game,
                                const Console& console);

}  // namespace corvane
