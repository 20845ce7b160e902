#include <algorithm>
#include <array>
#include <cmath>

#include "Look.h"

namespace corvane {
namespace {

// Relative luminance of an sRGB colour: 0 for black, 1 for white.
double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

// A `share` of 0 gives the first colour, 1 the second.
QColor Mixed(const QColor& from, const QColor& to, double share) {
  const auto part = [&](int a, int b) {
    return static_cast<int>(std::lround(a + (b - a) * share));
  };
  return {part(from.red(), to.red()), part(from.green(), to.green()), part(from.blue(), to.blue())};
}

QColor BlackOrWhite(const QColor& background) {
  return Contrast(Qt::black, background) > Contrast(Qt::white, background) ? Qt::black : Qt::white;
}

QColor ReadableText(const QColor& wanted, const QColor& background) {
  return Contrast(wanted, background) >= TextContrast ? wanted : BlackOrWhite(background);
}

struct Backgrounds {
  QColor Window, Base, Button;
  [[nodiscard]] bool AllShow(const QColor& colour) const {
    return std::min({Contrast(colour, Window), Contrast(colour, Base), Contrast(colour, Button)}) >=
           EdgeContrast;
  }
};

// The first acceptable colour between `from` and `to`; `to` if there is none.
template <class Test>
QColor FirstMatch(const QColor& from, const QColor& to, const Test& good) {
  constexpr int Steps = 50;
  for (int step = 0; step < Steps; ++step) {
    const QColor mixed = Mixed(from, to, static_cast<double>(step) / Steps);
    if (good(mixed)) return mixed;
  }
  return to;
}

QColor FirstVisible(const QColor& from, const QColor& to, const Backgrounds& backgrounds) {
  return FirstMatch(from, to, [&](const QColor& colour) { return backgrounds.AllShow(colour); });
}

// A background on which the wanted text is readable, if there is one; otherwise the text must
// change.
QColor SelectionBackground(const QColor& wanted, const QColor& wantedText, const QColor& text,
                           const Backgrounds& backgrounds) {
  const auto good = [&](const QColor& colour) {
    return backgrounds.AllShow(colour) && Contrast(wantedText, colour) >= TextContrast;
  };
  const QColor found = FirstMatch(wanted, text, good);
  return good(found) ? found : FirstVisible(wanted, text, backgrounds);
}

// In a light window, fields are never darker than the window; in a dark one, they are dark.
QColor FieldBackground(const QColor& wanted, const QColor& window, const QColor& text) {
  const bool dark = Luminance(text) > Luminance(window);
  if (dark) return Contrast(wanted, text) >= TextContrast ? wanted : window;
  return Luminance(wanted) > Luminance(window) ? wanted : QColor(Qt::white);
}

void SetAllGroups(QPalette& palette, QPalette::ColorRole role, const QColor& colour,
                  const QColor& disabled) {
  palette.setColor(QPalette::Active, role, colour);
  palette.setColor(QPalette::Inactive, role, colour);
  palette.setColor(QPalette::Disabled, role, disabled);
}

}  // namespace

double Contrast(const QColor& left, const QColor& right) {
  const double a = Luminance(left);
  const double b = Luminance(right);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QPalette ReadablePalette(const QPalette& desktop) {
  const auto wanted = [&](QPalette::ColorRole role) {
    return desktop.color(QPalette::Active, role);
  };
  const QColor window = wanted(QPalette::Window);
  const QColor text = ReadableText(wanted(QPalette::WindowText), window);
  const QColor base = FieldBackground(wanted(QPalette::Base), window, text);
  const QColor baseText = ReadableText(wanted(QPalette::Text), base);
  const bool dark = Luminance(text) > Luminance(window);
  const QColor button = dark ? Mixed(window, text, 0.12) : Mixed(window, base, 0.5);
  const Backgrounds backgrounds{window, base, button};
  const QColor edge = FirstVisible(window, text, backgrounds);
  const QColor selectedText = wanted(QPalette::HighlightedText);
  const QColor selected =
      SelectionBackground(wanted(QPalette::Highlight), selectedText, text, backgrounds);
  const QColor grey = Mixed(window, text, 0.5);
  struct Row {
    QPalette::ColorRole Role = QPalette::NoRole;
    QColor Colour, Disabled;
  };
  const std::array rows = {
      Row{QPalette::Window, window, window},
      Row{QPalette::WindowText, text, grey},
      Row{QPalette::Base, base, window},
      Row{QPalette::AlternateBase, Mixed(base, baseText, 0.05), window},
      Row{QPalette::Text, baseText, grey},
      Row{QPalette::PlaceholderText, Mixed(base, baseText, 0.6), grey},
      Row{QPalette::Button, button, window},
      Row{QPalette::ButtonText, ReadableText(text, button), grey},
      Row{QPalette::BrightText, BlackOrWhite(Mixed(window, text, 0.5)), grey},
      Row{QPalette::Light, Mixed(window, Qt::white, dark ? 0.2 : 0.8), window},
      Row{QPalette::Midlight, Mixed(window, text, 0.1), window},
      Row{QPalette::Mid, edge, edge},
      Row{QPalette::Dark, edge, edge},
      Row{QPalette::Shadow, Qt::black, Qt::black},
      Row{QPalette::Highlight, selected, Mixed(window, selected, 0.5)},
      Row{QPalette::HighlightedText, ReadableText(selectedText, selected), text},
      Row{QPalette::Link, ReadableText(wanted(QPalette::Link), base), grey},
      Row{QPalette::LinkVisited, ReadableText(wanted(QPalette::LinkVisited), base), grey},
      Row{QPalette::ToolTipBase, base, base},
      Row{QPalette::ToolTipText, baseText, baseText},
  };
  QPalette palette;
  for (int role = 0; role < QPalette::NColorRoles; ++role) {  // newer roles included
    SetAllGroups(palette, static_cast<QPalette::ColorRole>(role), selected, grey);
  }
  for (const Row& row : rows) SetAllGroups(palette, row.Role, row.Colour, row.Disabled);
  return palette;
}

}  // namespace corvane
