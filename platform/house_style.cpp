#include "platform/house_style.h"

#include <QPalette>
#include <QStyleOptionButton>

namespace zevfit {

namespace {

/// By how much the style that Qt brings along darkens the ground for an outline, per cent.
constexpr int kDarkening = 140;

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

QColor halfway(const QColor& a, const QColor& b) {
  return {(a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2};
}

/// Outlines are made from the ground, which darker is next to black: from this one they come out
/// between ground and letters.
QColor groundOfOutline(const QPalette& palette) {
  return halfway(palette.color(QPalette::Window), palette.color(QPalette::WindowText))
      .lighter(kDarkening);
}

}  // namespace

void HouseStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  const bool isMark = element == PE_IndicatorRadioButton || element == PE_IndicatorCheckBox;
  if (!isMark || !button || !isDark(option->palette))
    return QProxyStyle::drawPrimitive(element, option, painter, widget);
  QStyleOptionButton seen = *button;
  seen.palette.setColor(QPalette::Window, groundOfOutline(option->palette));
  QProxyStyle::drawPrimitive(element, &seen, painter, widget);
}

}  // namespace zevfit
