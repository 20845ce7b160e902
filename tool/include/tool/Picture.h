// The strategic layer as a picture: tiles, hotspots, arrows and the roads between the maps on the
// game's screen of 800 x 600, with findings and warnings marked where they are. The same input
// gives the same bytes on every system.
#pragma once

#include <string>

#include "tool/Layer.h"
#include "tool/Marks.h"

namespace corvane {

struct Picture {
  std::string Name;               // of what is drawn, for its title: "CC4.EXE"
  const Layer* Now = nullptr;     // never null when it is drawn
  const Layer* Before = nullptr;  // where it differs, it is drawn in outline
  std::string BeforeName;
  Marks Found;
};

/// One SVG that needs nothing else: with legend, list of findings, light and dark colours.
[[nodiscard]] std::string DrawSvg(const Picture& picture);

enum class Reload { Never, Steadily };

/// One HTML page that loads nothing: the SVG, with the data of each map and what it takes to look
/// around. With Reload::Steadily it shows a redrawn picture within some seconds.
[[nodiscard]] std::string DrawPage(const Picture& picture, Reload reload);

}  // namespace corvane
