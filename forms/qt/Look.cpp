#include "Look.h"

#include <QtWidgets>

namespace corvane {
namespace {

constexpr int FontHeight = 11;     // pixels; captions and rows fit their places
constexpr int FrameWidth = 2;      // pixels; the edge and the focus inside it
constexpr qreal CornerRadius = 3;  // pixels
constexpr int TitleLeft = 7;       // pixels, of a group box's title
constexpr int TitleMargin = 3;     // pixels, on either side of it
constexpr int FlashTime = 150;     // milliseconds

bool Has(const QStyleOption& option, QStyle::StateFlag flag) { return option.state & flag; }

QColor ColourOf(const QStyleOption& option, QPalette::ColorRole role) {
  return option.palette.color(role);
}

// A filled box with an edge, which is twice as wide and highlighted on focus.
void DrawBox(QPainter& painter, const QStyleOption& option, const QColor& background,
             QPalette::ColorRole edge = QPalette::Mid) {
  const bool focused = Has(option, QStyle::State_HasFocus);
  const int width = focused ? 2 : 1;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ColourOf(option, focused ? QPalette::Highlight : edge));
  painter.drawRoundedRect(QRectF(option.rect), CornerRadius, CornerRadius);
  painter.setBrush(background);
  painter.drawRoundedRect(QRectF(option.rect).adjusted(width, width, -width, -width),
                          CornerRadius - width, CornerRadius - width);
  painter.restore();
}

void DrawButton(QPainter& painter, const QStyleOption& option) {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  const bool isDefault = button && button->features & QStyleOptionButton::DefaultButton;
  const bool pressed = Has(option, QStyle::State_Sunken) || Has(option, QStyle::State_On);
  DrawBox(painter, option, ColourOf(option, pressed ? QPalette::Midlight : QPalette::Button),
          isDefault ? QPalette::Highlight : QPalette::Mid);
}

void DrawOutline(QPainter& painter, const QRectF& rect, const QColor& colour, qreal rounding) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(colour);
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(rect.adjusted(0.5, 0.5, -0.5, -0.5), rounding, rounding);
  painter.restore();
}

// Buttons and combo boxes show the focus by their edge.
void DrawFocus(QPainter& painter, const QStyleOption& option, const QWidget* widget) {
  if (qobject_cast<const QPushButton*>(widget) || qobject_cast<const QComboBox*>(widget)) return;
  const bool selected = Has(option, QStyle::State_Selected);
  DrawOutline(painter, option.rect,
              ColourOf(option, selected ? QPalette::HighlightedText : QPalette::Highlight), 0);
}

// The focused row is selected, but the option for its focus rectangle omits that state.
QStyleOption FocusOf(const QStyleOption& option) {
  QStyleOption focus = option;
  const auto* rect = qstyleoption_cast<const QStyleOptionFocusRect*>(&option);
  if (rect && rect->backgroundColor == ColourOf(option, QPalette::Highlight)) {
    focus.state |= QStyle::State_Selected;
  }
  return focus;
}

QRect TitleOf(const QStyleOptionComplex& option) {
  const auto& box = static_cast<const QStyleOptionGroupBox&>(option);
  const QSize text = box.fontMetrics.size(Qt::TextShowMnemonic, box.text);
  return {TitleLeft, 0, text.width() + 2 * TitleMargin, text.height()};
}

void DrawComboBox(const QStyle& style, QPainter& painter, const QStyleOptionComplex& option,
                  const QWidget* widget) {
  DrawBox(painter, option, ColourOf(option, QPalette::Button));
  QStyleOption arrow = static_cast<const QStyleOption&>(option);  // the common part is enough
  arrow.rect = style.subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, widget);
  arrow.rect.adjust(2, 0, -4, 0);
  style.drawPrimitive(QStyle::PE_IndicatorArrowDown, &arrow, &painter, widget);
}

// The caption straddles the top border, inside the frame's place.
void DrawGroupBox(QPainter& painter, const QStyleOptionComplex& option) {
  const QRect title = TitleOf(option);
  painter.save();
  painter.setClipRegion(QRegion(option.rect) - title);
  DrawOutline(painter, option.rect.adjusted(0, title.height() / 2, 0, 0),
              ColourOf(option, QPalette::Mid), CornerRadius);
  painter.restore();
  painter.setPen(ColourOf(option, QPalette::WindowText));
  painter.drawText(title, Qt::AlignCenter | Qt::TextShowMnemonic,
                   static_cast<const QStyleOptionGroupBox&>(option).text);
}

QFont MakePlainFont() {
  QFont font;
  font.setFamilies({"Tahoma", "DejaVu Sans Condensed", "Liberation Sans", font.family()});
  font.setPixelSize(FontHeight);
  font.setStyleName({});
  font.setWeight(QFont::Normal);
  font.setItalic(false);
  font.setStretch(QFont::AnyStretch);
  font.setResolveMask(QFont::AllPropertiesResolved);
  return font;
}

}  // namespace

const QFont& PlainFont() {
  static const QFont font = MakePlainFont();
  return font;
}

Look::Look()
    : QProxyStyle(QStyleFactory::create("Fusion")),
      Colours(ReadablePalette(QApplication::palette())) {
  qApp->installEventFilter(this);
}

// Keeps fonts that were narrowed to fit.
void Look::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  if (widget->font().resolveMask() != QFont::AllPropertiesResolved) widget->setFont(PlainFont());
  widget->setPalette(Colours);
}

// The desktop's colours can change at run time.
bool Look::eventFilter(QObject* target, QEvent* event) {
  if (target == qApp && event->type() == QEvent::ApplicationPaletteChange) {
    Colours = ReadablePalette(QApplication::palette());
    for (QWidget* widget : QApplication::allWidgets()) widget->setPalette(Colours);
  }
  return false;
}

int Look::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  return metric == PM_DefaultFrameWidth ? FrameWidth
                                        : QProxyStyle::pixelMetric(metric, option, widget);
}

// Combo boxes drop their list below the field.
int Look::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                    QStyleHintReturn* returned) const {
  return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, returned);
}

QRect Look::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                           SubControl part, const QWidget* widget) const {
  const QRect& box = option->rect;
  if (control == CC_ComboBox && part == SC_ComboBoxArrow) {
    return box.adjusted(box.width() - ComboArrow, 0, 0, 0);
  }
  if (control == CC_ComboBox && part == SC_ComboBoxEditField) {
    return box.adjusted(2, 1, -ComboArrow, -1);
  }
  if (control == CC_GroupBox && part == SC_GroupBoxLabel) return TitleOf(*option);
  return QProxyStyle::subControlRect(control, option, part, widget);
}

void Look::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                         const QWidget* widget) const {
  switch (element) {
    case PE_Frame:
    case PE_FrameMenu:
    case PE_PanelLineEdit:
      return DrawBox(*painter, *option, ColourOf(*option, QPalette::Base));
    case PE_FrameLineEdit:
      return;  // part of its panel
    case PE_PanelButtonCommand:
      return DrawButton(*painter, *option);
    case PE_FrameFocusRect:
      return DrawFocus(*painter, FocusOf(*option), widget);
    default:
      return QProxyStyle::drawPrimitive(element, option, painter, widget);
  }
}

void Look::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                              QPainter* painter, const QWidget* widget) const {
  if (control == CC_ComboBox) return DrawComboBox(*this, *painter, *option, widget);
  if (control == CC_GroupBox) return DrawGroupBox(*painter, *option);
  QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void ApplyLook() {
  QApplication::setFont(PlainFont());
  QApplication::setStyle(new Look);
}

void Flash(QWidget* widget) {
  QPalette inverted = widget->palette();
  inverted.setColor(QPalette::Base, widget->palette().color(QPalette::Text));
  inverted.setColor(QPalette::Text, widget->palette().color(QPalette::Base));
  widget->setPalette(inverted);
  QTimer::singleShot(FlashTime, widget, [widget] { widget->style()->polish(widget); });
}

}  // namespace corvane
