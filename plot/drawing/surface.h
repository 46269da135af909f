#pragma once

#include <string>
#include <string_view>

#include "session/style.h"

namespace zevfit {

/// A font of a plot, size in points.
struct Font {
  std::string name;
  float size = 0;
  bool bold = false;
  bool operator==(const Font&) const = default;
};

enum class LineStyle { solid, dotted };

/// How a line is stroked; the width is in picture points of 15 twips.
struct Stroke {
  Colour colour = kBlack;
  int width = 1;
  LineStyle style = LineStyle::solid;
  bool operator==(const Stroke&) const = default;
};

/// Where a plot is drawn: twips (1/1440 inch), origin top left, y down. Texts are Latin-1; in the
/// font "Symbol" a letter shows as the Greek one that it stands for.
class Surface {
 public:
  virtual ~Surface() = default;

  /// Fills all of the picture and drops what was drawn.
  virtual void clear(Colour background) = 0;
  /// The position is the top left corner of the text.
  virtual void text(double x, double y, std::string_view text, const Font& font, Colour colour) = 0;
  virtual void line(double x1, double y1, double x2, double y2, const Stroke& stroke) = 0;
  /// A filled circle with its outline.
  virtual void disc(double x, double y, double radius, const Stroke& outline, Colour fill) = 0;
  /// A filled rectangle without an outline.
  virtual void box(double left, double top, double width, double height, Colour fill) = 0;
  /// How far a text in that font reaches across.
  virtual double textWidth(std::string_view text, const Font& font) = 0;
};

}  // namespace zevfit
