#include "plot/drawing.h"

#include "session/numbers.h"

namespace zevfit {

PlotMap Drawing::map() const {
  return {box(), cell(&Session::xmax), cell(&Session::ymin), cell(&Session::ymax)};
}

std::string_view Drawing::variableName() const { return session().varname(session().plotvar); }

std::string_view Drawing::directionName() const { return session().dirname(session().plotdir); }

bool Drawing::hasModel() const {
  return zevfit::hasModel(session(), session().plotvar, session().plotdir);
}

Font Drawing::font(FontRole role) const {
  const FontSample& sample = session().style.Formfont.Label2.at(static_cast<std::size_t>(role));
  return {sample.fontname, sample.fontsize};
}

void Drawing::text(double x, double y, std::string_view text, const Font& font,
                   Colour colour) const {
  window.picture().text(x, y, text, font, colour);
}

void Drawing::setPen(int width, LineStyle style) const {
  window.pen().width = width;
  window.pen().style = style;
}

void Drawing::line(double x1, double y1, double x2, double y2, Colour colour) const {
  const PenState pen = window.pen();
  window.picture().line(x1, y1, x2, y2, {colour, pen.width, pen.style});
}

void Drawing::disc(double x, double y, Colour colour) const {
  const PenState pen = window.pen();
  window.picture().disc(x, y, form.discRadius, {colour, pen.width, pen.style}, colour);
}

double halfWidth(std::string_view text, double characterWidth) {
  return static_cast<double>(text.size()) * characterWidth / 2;
}

}  // namespace zevfit
