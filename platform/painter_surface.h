#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <string>
#include <vector>

#include "plot/surface.h"

namespace zevfit {

/// Units of the logic in a logical pixel.
inline constexpr double kTwipsPerPixel = 15;

QColor toQColor(Colour colour);
Colour toColour(const QColor& colour);

/// The family of a plot font with a metric-compatible one in its place; "Symbol" is drawn with the
/// Greek letters of Unicode.
QFont toQFont(const Font& font);
/// The text as it is drawn: Latin-1, in the font "Symbol" the Greek letters.
QString toDrawnText(std::string_view text, const std::string& fontName);

/// Draws with a painter that stands open, whose units are logical pixels. Lines along an axis are
/// crisp, curves and discs smooth.
class PainterSurface : public Surface {
 public:
  void clear(Colour background) override;
  void text(double x, double y, std::string_view text, const Font& font, Colour colour) override;
  void line(double x1, double y1, double x2, double y2, const Stroke& stroke) override;
  void disc(double x, double y, double radius, const Stroke& outline, Colour fill) override;

 protected:
  /// The painter to draw with, open.
  virtual QPainter& painter() = 0;

 private:
  struct Face {
    Font font;
    QFont face;
    double ascent = 0;
  };
  const Face& face(const Font& font, QPaintDevice* device);

  std::vector<Face> faces_;
};

}  // namespace zevfit
