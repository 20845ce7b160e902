// State and functions that the parts of a picture share.
#pragma once

#include <string>

#include "Labels.h"
#include "Markup.h"
#include "Scene.h"
#include "tool/Picture.h"

namespace corvane {

struct Sheet {
  const Picture& Input;
  Scene Now;
  Markup Out;
  LabelSheet Labels;
};

constexpr int LegendTop = ScreenHeight + SheetMargin + 8;
constexpr int LegendBottom = LegendTop + 52;
constexpr int HeadingTop = -SheetMargin - 38;

/// The title of the picture and of its page.
[[nodiscard]] std::string PictureTitle(const Picture& picture);

/// "7 Havrune", or "7" for a slot without a name.
[[nodiscard]] std::string MapTitle(const Scene& scene, int map);

/// The caption of a kind of road, such as "both ways", and its class in the style sheet.
[[nodiscard]] std::string_view KindTitle(RoadKind kind);
[[nodiscard]] std::string_view KindClass(RoadKind kind);

/// The `d` attribute of a path from hotspot to hotspot through the arrow.
[[nodiscard]] std::string RoadPath(const Scene& scene, const Road& road);

/// The coordinates of a point in a path: "3 4".
[[nodiscard]] std::string FormatPoint(Point point);

void DrawBox(Markup& out, const Box& box);

/// Draws the number of each finding and warning at its tile or arrow.
void DrawBadges(Sheet& sheet);
void DrawLegend(Sheet& sheet);

/// The lower right corner of the list of findings and warnings, in pixels of the sheet.
[[nodiscard]] Point ListEnd(const Marks& marks);
void DrawList(Sheet& sheet);

/// Draws what differs in the earlier layer, in outline.
void DrawBefore(Sheet& sheet);

/// The counts in a line: "43 maps, 90 connections, 1 finding, no warnings".
[[nodiscard]] std::string Summary(const Picture& picture, const Scene& scene);

}  // namespace corvane
