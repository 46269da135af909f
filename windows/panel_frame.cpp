#include "windows/panel_frame.h"

#include <QEvent>
#include <QPaintEvent>
#include <QStyleOptionGroupBox>
#include <QStylePainter>
#include <cmath>

namespace zevfit {

namespace {

/// A kept picture lies on the pixels of the screen; on other scales it would be blurred.
bool isWhole(qreal ratio) { return ratio == std::floor(ratio); }

QColor groundOf(const QStyleOption& option) { return option.palette.color(QPalette::Window); }

}  // namespace

PanelFrame::PanelFrame(const QString& title) : QGroupBox(title) {
  // What lies behind is on the picture.
  setAttribute(Qt::WA_OpaquePaintEvent);
}

void PanelFrame::changeEvent(QEvent* event) {
  if (event->type() == QEvent::StyleChange) picture_ = {};
  QGroupBox::changeEvent(event);
}

PanelFrame::Look PanelFrame::lookOf(const QStyleOptionGroupBox& option) const {
  return {size(),       devicePixelRatioF(),       option.text,
          option.state, option.palette.cacheKey(), font()};
}

void PanelFrame::renew(const QStyleOptionGroupBox& option) {
  const Look look = lookOf(option);
  if (!picture_.isNull() && look == look_) return;
  look_ = look;
  picture_ = QPixmap((QSizeF(look.size) * look.ratio).toSize());
  picture_.setDevicePixelRatio(look.ratio);
  picture_.fill(groundOf(option));
  QStylePainter painter(&picture_, this);
  painter.setFont(look.font);
  painter.setLayoutDirection(option.direction);
  painter.drawComplexControl(QStyle::CC_GroupBox, option);
}

void PanelFrame::paintEvent(QPaintEvent* event) {
  QStyleOptionGroupBox option;
  initStyleOption(&option);
  QStylePainter painter(this);
  if (!isWhole(devicePixelRatioF())) {
    painter.fillRect(rect(), groundOf(option));
    return painter.drawComplexControl(QStyle::CC_GroupBox, option);
  }
  renew(option);
  // A clip of one rectangle is quick, one of several is not.
  for (const QRect& part : event->region()) {
    painter.setClipRect(part);
    painter.drawPixmap(0, 0, picture_);
  }
}

}  // namespace zevfit
