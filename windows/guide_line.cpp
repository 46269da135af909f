#include "windows/guide_line.h"

#include <QPainter>

namespace zevfit {

GuideLine::GuideLine(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void GuideLine::setStyle(LineStyle style) {
  style_ = style;
  update();
}

void GuideLine::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  const Qt::PenStyle style = style_ == LineStyle::dotted ? Qt::DotLine : Qt::SolidLine;
  painter.setPen(QPen(palette().color(QPalette::WindowText), 1, style));
  painter.drawLine(0, 0, width() - 1, height() - 1);
}

}  // namespace zevfit
