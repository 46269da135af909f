#include "platform/sheet_surface.h"

#include <QFontMetricsF>
#include <QPen>
#include <algorithm>

#include "platform/painter_surface.h"

namespace zevfit {

namespace {

/// Nothing is drawn farther out than this many sheets: an axis of next to no length can give
/// coordinates that no device takes.
constexpr double kReach = 20;

double held(double at, double length) { return std::clamp(at, -kReach * length, kReach * length); }

}  // namespace

SheetSurface::SheetSurface(QPainter& painter, QSizeF size, double penPoint, double texts)
    : painter_(painter),
      size_(size),
      penPoint_(penPoint),
      texts_(texts),
      across_(painter.device()->width() / size.width()),
      down_(painter.device()->height() / size.height()) {
  painter_.setRenderHint(QPainter::Antialiasing);
}

QPointF SheetSurface::place(double x, double y) const {
  return {held(x, size_.width()) * across_, held(y, size_.height()) * down_};
}

QFont SheetSurface::face(const Font& font) const {
  return toQFont({font.name, font.size * static_cast<float>(texts_), font.bold});
}

QPen SheetSurface::pen(const Stroke& stroke) const {
  QPen made(toQColor(stroke.colour), stroke.width * penPoint_ * across_);
  made.setStyle(stroke.style == LineStyle::dotted ? Qt::DotLine : Qt::SolidLine);
  made.setCapStyle(Qt::FlatCap);
  made.setJoinStyle(Qt::RoundJoin);
  return made;
}

void SheetSurface::clear(Colour background) {
  box(0, 0, size_.width(), size_.height(), background);
}

void SheetSurface::text(double x, double y, std::string_view text, const Font& font,
                        Colour colour) {
  finish();
  const QFont drawn = face(font);
  const QFontMetricsF metrics(drawn, painter_.device());
  painter_.setFont(drawn);
  painter_.setPen(toQColor(colour));
  painter_.drawText(place(x, y) + QPointF(0, metrics.ascent()), toDrawnText(text, font.name));
}

void SheetSurface::line(double x1, double y1, double x2, double y2, const Stroke& stroke) {
  const QPointF from = place(x1, y1), to = place(x2, y2);
  if (curve_.isEmpty() || curve_.constLast() != from || curveStroke_ != stroke) {
    finish();
    curve_ << from;
    curveStroke_ = stroke;
  }
  curve_ << to;
}

void SheetSurface::finish() {
  if (curve_.isEmpty()) return;
  painter_.setPen(pen(curveStroke_));
  painter_.drawPolyline(curve_);
  curve_.clear();
}

void SheetSurface::disc(double x, double y, double radius, const Stroke& outline, Colour fill) {
  finish();
  painter_.setPen(pen(outline));
  painter_.setBrush(toQColor(fill));
  painter_.drawEllipse(place(x, y), radius * across_, radius * down_);
  painter_.setBrush(Qt::NoBrush);
}

void SheetSurface::box(double left, double top, double width, double height, Colour fill) {
  finish();
  painter_.fillRect(QRectF(place(left, top), place(left + width, top + height)), toQColor(fill));
}

double SheetSurface::textWidth(std::string_view text, const Font& font) {
  const QFontMetricsF metrics(face(font), painter_.device());
  return metrics.horizontalAdvance(toDrawnText(text, font.name)) / across_;
}

}  // namespace zevfit
