#include "platform/house_style.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QGroupBox>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QPointer>
#include <QStyleOptionButton>
#include <QStyleOptionSlider>
#include <QStyleOptionTitleBar>
#include <algorithm>
#include <cmath>

#include "platform/late_icon.h"

namespace zevfit {

namespace {

/// By how much the style that Qt brings along darkens the ground for an outline, per cent.
constexpr int kDarkening = 140;
/// From the ground to the letters, per cent: where outlines are, and handles of sliders that can't
/// be moved, can be and are.
constexpr int kOutlineShare = 50, kHandleOff = 25, kHandle = 65, kHandleHeld = 85;
/// Of a corner, pixels.
constexpr double kRounding = 2;
/// The frame of a group, on the ground behind it: its inside, the ring next to that, the outline,
/// and the corners of both.
constexpr QColor kGroupGround(0, 0, 0, 3), kGroupShade(0, 0, 0, 7),
    kGroupOutline(117, 117, 117, 50);
constexpr QColor kShadeCorner(90, 90, 90, 31), kOutlineCorner(39, 39, 39, 13);
/// Between title and frame, pixels.
constexpr int kAboveGroup = 3;

bool isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() <
         palette.color(QPalette::WindowText).lightness();
}

/// A colour on the way from one to another, per cent.
QColor between(const QColor& from, const QColor& to, int share) {
  const auto mixed = [share](int a, int b) { return a + (b - a) * share / 100; };
  return {mixed(from.red(), to.red()), mixed(from.green(), to.green()),
          mixed(from.blue(), to.blue())};
}

/// Between ground and letters.
QColor towardsLetters(const QPalette& palette, int share) {
  return between(palette.color(QPalette::Window), palette.color(QPalette::WindowText), share);
}

/// Outlines are made from the ground, which darker is next to black: from this one they come out
/// between ground and letters.
QColor groundOfOutline(const QPalette& palette) {
  return towardsLetters(palette, kOutlineShare).lighter(kDarkening);
}

/// The option with that ground, for outlines alone.
template <class Option>
Option outlined(const Option& option) {
  Option seen = option;
  seen.palette.setColor(QPalette::Window, groundOfOutline(option.palette));
  return seen;
}

/// Around the inside of a control.
void drawOutline(QPainter& painter, const QRect& place, const QPen& pen, const QBrush& brush) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(pen);
  painter.setBrush(brush);
  painter.drawRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), kRounding, kRounding);
  painter.restore();
}

/// One pixel wide, with corners of their own colour.
void drawRing(QPainter& painter, const QRect& ring, const QColor& sides, const QColor& corners) {
  for (const int x : {ring.left(), ring.right()}) {
    painter.fillRect(x, ring.top() + 1, 1, ring.height() - 2, sides);
    for (const int y : {ring.top(), ring.bottom()}) painter.fillRect(x, y, 1, 1, corners);
  }
  for (const int y : {ring.top(), ring.bottom()})
    painter.fillRect(ring.left() + 1, y, ring.width() - 2, 1, sides);
}

/// The name in Qt's cache of how the ground of a field looks.
QString keyOf(const QStyleOptionFrame& field, qreal ratio) {
  return QString("zevfit-field %1 %2 %3 %4 %5 %6")
      .arg(field.rect.width())
      .arg(field.rect.height())
      .arg(field.state.toInt())
      .arg(field.lineWidth)
      .arg(field.palette.cacheKey())
      .arg(ratio);
}

/// A picture can stand for what it shows: on other scales it would not lie on whole pixels.
bool isOnPixels(const QPainter& painter) {
  const qreal ratio = painter.device()->devicePixelRatioF();
  return ratio == std::floor(ratio) && painter.worldTransform().type() <= QTransform::TxTranslate;
}

/// The field of a list or of a number that goes up and down has the ground of these.
bool isPart(const QWidget* field) {
  const QWidget* parent = field ? field->parentWidget() : nullptr;
  return qobject_cast<const QComboBox*>(parent) || qobject_cast<const QAbstractSpinBox*>(parent);
}

/// How light the handle of a slider is.
int shareOfHandle(const QStyleOptionSlider& slider) {
  if (!slider.state.testFlag(QStyle::State_Enabled)) return kHandleOff;
  const bool isHeld = slider.activeSubControls.testFlag(QStyle::SC_SliderHandle) &&
                      slider.state.testFlag(QStyle::State_Sunken);
  return isHeld ? kHandleHeld : kHandle;
}

/// Only what is active has white buttons, and its title has a shadow of the colour of letters: this
/// one is drawn as if it were active, on its own ground, with a dark shadow.
QStyleOptionTitleBar litTitle(const QStyleOptionTitleBar& option) {
  QStyleOptionTitleBar seen = option;
  if ((option.titleBarState & QStyle::State_Active) == 0)
    seen.palette.setColor(QPalette::Highlight, option.palette.color(QPalette::Window));
  seen.titleBarState |= QStyle::State_Active;
  seen.palette.setColor(QPalette::Text, Qt::black);
  return seen;
}

}  // namespace

void HouseStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
  if (element == PE_PanelLineEdit && frame && paintsItself(*painter) && !isPart(widget))
    return drawField(*frame, *painter, widget);
  if (element == PE_FrameGroupBox && paintsItself(*painter))
    return drawGroupFrame(*option, *painter, widget);
  if (!isDark(option->palette)) return QProxyStyle::drawPrimitive(element, option, painter, widget);
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  const bool isMark = element == PE_IndicatorRadioButton || element == PE_IndicatorCheckBox;
  if (isMark && button) {
    const QStyleOptionButton seen = outlined(*button);
    return QProxyStyle::drawPrimitive(element, &seen, painter, widget);
  }
  if (element == PE_FrameLineEdit && frame) {
    const QStyleOptionFrame seen = outlined(*frame);
    return QProxyStyle::drawPrimitive(element, &seen, painter, widget);
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (element == PE_PanelButtonCommand && !option->state.testFlag(State_HasFocus))
    drawOutline(*painter, option->rect, towardsLetters(option->palette, kOutlineShare / 2),
                Qt::NoBrush);
}

bool HouseStyle::paintsItself(const QPainter& painter) const {
  return baseStyle()->inherits("QFusionStyle") && isOnPixels(painter);
}

// The style that Qt brings along has it from a file.
void HouseStyle::drawGroupFrame(const QStyleOption& option, QPainter& painter,
                                const QWidget* widget) const {
  const auto* group = qobject_cast<const QGroupBox*>(widget);
  const bool isUntitled = group && !group->isCheckable() && group->title().isEmpty();
  const int title = isUntitled ? 0
                               : std::max(proxy()->pixelMetric(PM_IndicatorHeight, &option, widget),
                                          option.fontMetrics.height());
  const QRect outline = option.rect.adjusted(1, title + kAboveGroup + 1, 0, 0);
  const QRect shade = outline.adjusted(1, 1, -1, -1);
  painter.fillRect(shade.adjusted(1, 1, -1, -1), kGroupGround);
  drawRing(painter, shade, kGroupShade, kShadeCorner);
  drawRing(painter, outline, kGroupOutline, kOutlineCorner);
}

void HouseStyle::drawField(const QStyleOptionFrame& field, QPainter& painter,
                           const QWidget* widget) const {
  const qreal ratio = painter.device()->devicePixelRatioF();
  const QString key = keyOf(field, ratio);
  QPixmap ground;
  if (!QPixmapCache::find(key, &ground)) {
    ground = QPixmap((QSizeF(field.rect.size()) * ratio).toSize());
    ground.setDevicePixelRatio(ratio);
    ground.fill(Qt::transparent);
    QPainter to(&ground);
    to.translate(-field.rect.topLeft());
    QProxyStyle::drawPrimitive(PE_PanelLineEdit, &field, &to, widget);
    to.end();
    QPixmapCache::insert(key, ground);
  }
  painter.drawPixmap(field.rect.topLeft(), ground);
}

void HouseStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
  const auto* title = qstyleoption_cast<const QStyleOptionTitleBar*>(option);
  if (control == CC_TitleBar && title && isDark(title->palette)) {
    const QStyleOptionTitleBar seen = litTitle(*title);
    return QProxyStyle::drawComplexControl(control, &seen, painter, widget);
  }
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control != CC_Slider || !slider || !isDark(option->palette)) return;
  const QRect handle = subControlRect(CC_Slider, option, SC_SliderHandle, widget);
  const QColor letters = towardsLetters(option->palette, shareOfHandle(*slider));
  const bool isChosen = option->state.testFlag(State_HasFocus);
  const QColor edge = isChosen ? option->palette.color(QPalette::Highlight) : letters;
  drawOutline(*painter, handle.adjusted(1, 1, -1, -1), {edge, 2}, letters);
}

QIcon HouseStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                               const QWidget* widget) const {
  if (which != SP_ToolBarHorizontalExtensionButton && which != SP_ToolBarVerticalExtensionButton)
    return QProxyStyle::standardIcon(which, option, widget);
  const QPointer<const HouseStyle> style = this;
  return QIcon(new LateIcon(
      [style, which] { return style ? style->QProxyStyle::standardIcon(which) : QIcon(); }));
}

}  // namespace zevfit
