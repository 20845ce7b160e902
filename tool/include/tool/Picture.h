// The strategic layer as a picture: tiles, hotspots, arrows and the roads between the maps on the
// game's screen of 800 x 600, with findings and warnings marked in place. The same input gives the
// same bytes on every system with the same ANSI code page.
#pragma once

#include <string>

#include "tool/Layer.h"
#include "tool/Marks.h"

namespace corvane {

struct Picture {
  std::string Name;               // of the source, for the title: "CC4.EXE"
  const Layer* Now = nullptr;     // must not be null
  const Layer* Before = nullptr;  // may be null; differences are drawn in outline
  std::string BeforeName;
  Marks Found;
};

/// A self-contained SVG with a legend, a list of findings, and light and dark colours.
[[nodiscard]] std::string DrawSvg(const Picture& picture);

enum class Reload { Never, Periodically };

/// A self-contained HTML page: the SVG, zoom and pan, and the data of each map. With
/// Reload::Periodically it shows a redrawn picture within a few seconds.
[[nodiscard]] std::string DrawPage(const Picture& picture, Reload reload);

}  // namespace corvane
