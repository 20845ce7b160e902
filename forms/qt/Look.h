// The compact look that the control layout requires: one font, one style, and colours that follow
// the desktop's but guarantee contrast. Every widget gets its own font and palette, so that windows
// look the same under any desktop theme.
#pragma once

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QProxyStyle>

namespace corvane {

inline constexpr double EdgeContrast = 3;    // minimum contrast of edges and the focus
inline constexpr double TextContrast = 4.5;  // minimum contrast of text with its background
inline constexpr int ComboArrow = 14;        // width of a combo box's arrow, in pixels

/// The contrast ratio of two colours: 1 for equal colours, 21 for black and white.
[[nodiscard]] double Contrast(const QColor& left, const QColor& right);

/// The desktop's colours, adjusted only as far as contrast requires. Mid colours edges; Highlight
/// colours the focus and selected rows.
[[nodiscard]] QPalette ReadablePalette(const QPalette& desktop);

/// The font of every widget; sets every attribute, so no theme can change it.
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

/// Applies this look to the application.
void ApplyLook();

/// Flashes the widget to signal a refusal, for systems without a bell.
void Flash(QWidget* widget);

}  // namespace corvane
