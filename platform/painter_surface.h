#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPolygonF>
#include <QStaticText>
#include <array>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/stamp.h"
#include "plot/drawing/surface.h"

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

/// Draws on a bitmap with a painter that stands open, whose units are logical pixels. Lines along
/// an axis are crisp, curves and discs smooth. Slanted lines that follow each other from end to end
/// are one curve, and so are the level ones among them. What a redraw needs again (laid out texts,
/// discs) is kept, since each step of a slider redraws all.
class PainterSurface : public Surface {
 public:
  void text(double x, double y, std::string_view text, const Font& font, Colour colour) override;
  void line(double x1, double y1, double x2, double y2, const Stroke& stroke) override;
  void disc(double x, double y, double radius, const Stroke& outline, Colour fill) override;
  void box(double left, double top, double width, double height, Colour fill) override;
  double textWidth(std::string_view text, const Font& font) override;

 protected:
  /// The painter to draw with, open.
  virtual QPainter& painter() = 0;
  /// What it draws on.
  virtual QImage& bitmap() = 0;
  /// Draws what is still held back; to be called before the painter ends.
  void finish();
  /// The device has changed: nothing kept fits it.
  void forget();

 private:
  struct Face {
    Font font;
    QFont face;
    std::unordered_map<std::string, QStaticText> texts;
  };
  /// Discs are kept at this many places within a pixel, each way.
  static constexpr std::size_t kPhases = 4;
  struct Place {
    int pixel;  ///< of the bitmap
    std::size_t phase;
  };
  struct Disc {
    double radius;
    Stroke outline;
    Colour fill;
    std::array<std::optional<Stamp>, kPhases * kPhases> stamps;
    int side = 0;  ///< of a stamp, pixels
  };
  Face& face(const Font& font);
  Disc& discOf(double radius, const Stroke& outline, Colour fill);
  static Place placeOf(double pixels);
  Stamp stampOf(const Disc& disc, std::size_t phaseX, std::size_t phaseY);
  /// Takes a line into the curve that stands open; false for one that does not go on from its end.
  bool goesOn(const QLineF& line, const Stroke& stroke);
  /// Fills a polygon, smooth, with the painter's brush.
  void drawColumns(const QPolygonF& outline);
  void straight(const QLineF& line, const Stroke& stroke);

  std::vector<Face> faces_;
  std::vector<Disc> discs_;
  QPolygonF curve_;  ///< lines of one stroke, each from the end of the one before, not drawn yet
  Stroke curveStroke_;
};

}  // namespace zevfit
