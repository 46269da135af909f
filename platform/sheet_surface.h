#pragma once

#include <QPainter>
#include <QPolygonF>

#include "plot/drawing/surface.h"

namespace zevfit {

/// A point of a pen on paper, twips: half a typographic one, finer than on a screen.
inline constexpr double kPaperPenPoint = 10;

/// Draws on paper, or into a file of lines and texts, with an open painter, which must outlive it:
/// lines, discs and real texts at the resolution of the device, none as a bitmap. The whole paper
/// counts as `size` units, a point of the pen as `penPoint`; texts are `texts` times as large as
/// their fonts say.
class SheetSurface : public Surface {
 public:
  SheetSurface(QPainter& painter, QSizeF size, double penPoint = kPaperPenPoint, double texts = 1);

  void clear(Colour background) override;
  void text(double x, double y, std::string_view text, const Font& font, Colour colour) override;
  void line(double x1, double y1, double x2, double y2, const Stroke& stroke) override;
  void disc(double x, double y, double radius, const Stroke& outline, Colour fill) override;
  void box(double left, double top, double width, double height, Colour fill) override;
  double textWidth(std::string_view text, const Font& font) override;
  /// Draws what is still held back; to be called before the painter ends.
  void finish();

 private:
  QPointF place(double x, double y) const;
  QFont face(const Font& font) const;
  QPen pen(const Stroke& stroke) const;

  QPainter& painter_;
  QSizeF size_;
  double penPoint_, texts_;
  double across_, down_;  ///< dots of the device in a unit
  QPolygonF curve_;       ///< lines of one stroke, each from the end of the one before
  Stroke curveStroke_;
};

}  // namespace zevfit
