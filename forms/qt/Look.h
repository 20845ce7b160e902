// The slim look that the places of the controls are made for: one font, one style, and colours that
// follow the desktop's but always have contrast. Whatever a desktop theme hands over, every widget
// is given a font and a palette of its own, so that the windows look alike everywhere.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QProxyStyle>

namespace corvane {

inline constexpr double EdgeContrast = 3;    // least that edges and the focus differ by
inline constexpr double TextContrast = 4.5;  // least that a text differs by from its ground
inline constexpr int ComboArrow = 14;        // width of a combo box's arrow, in pixels

/// How far two colours differ in brightness: 1 for the same one, 21 for black and white.
[[nodiscard]] double Contrast(const QColor& left, const QColor& right);

/// The desktop's colours, each moved as far as it takes to be seen. Mid is the colour of edges,
/// Highlight that of the focus and of selected rows.
[[nodiscard]] QPalette ReadablePalette(const QPalette& desktop);

/// The font of every widget, with no attribute left to a theme.
[[nodiscard]] const QFont& PlainFont();

class Look : public QProxyStyle {
 public:
  Look();

  using QProxyStyle::polish;
  void polish(QWidget* widget) override;

  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* returned) const override;
  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* widget) const override;
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;

 protected:
  bool eventFilter(QObject* target, QEvent* event) override;

 private:
  QPalette Colours;
};

/// Gives the whole application this look.
void DressApplication();

/// Shows a refusal at a widget for a moment, where the system has no bell.
void Flash(QWidget* widget);

}  // namespace corvane
