// What the parts of a picture share while it is drawn.
#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "Labels.h"
#include "Markup.h"
#include "Scene.h"
#include "tool/Picture.h"

namespace corvane {

struct Sheet {
  const Picture& Of;
  Scene Now;
  Markup Out;
  LabelSheet Labels;
};

constexpr int LegendTop = ScreenHeight + SheetMargin + 8;
constexpr int LegendBottom = LegendTop + 52;
constexpr int HeadingTop = -SheetMargin - 38;

/// "7 Havrune", or "7" for a slot without a name.
[[nodiscard]] std::string MapTitle(const Scene& scene, int map);

/// "both ways" and the like, for people; and the class of the road in the style sheet.
[[nodiscard]] std::string_view KindTitle(RoadKind kind);
[[nodiscard]] std::string_view KindClass(RoadKind kind);

/// The `d` of a path from hotspot by its arrow to hotspot.
[[nodiscard]] std::string RoadPath(const Scene& scene, const Road& road);

/// A number for each finding and warning that has a place, set at that place.
void DrawBadges(Sheet& sheet);
void DrawLegend(Sheet& sheet);

/// Right and bottom of what the list of findings and warnings fills, in pixels of the sheet.
[[nodiscard]] Point ListEnd(const Marks& marks);
void DrawList(Sheet& sheet);

/// What differs from the layer before, in outline.
void DrawBefore(Sheet& sheet);

/// Counts for people: "43 maps, 90 connections, 1 finding, no warnings".
[[nodiscard]] std::string Summary(const Picture& picture, const Scene& scene);

}  // namespace corvane
