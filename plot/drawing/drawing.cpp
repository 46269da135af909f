#include "plot/drawing/drawing.h"

#include "session/line.h"

namespace zevfit {

PlotMap Drawing::map() const {
  return {box(), cell(&Session::xmax), cell(&Session::ymin), cell(&Session::ymax)};
}

std::string_view Drawing::variableName() const { return session().varname(session().plotvar); }

std::string_view Drawing::directionName() const { return session().dirname(session().plotdir); }

bool Drawing::hasModel() const { return zevfit::hasModel(session(), session().plotted()); }

Font Drawing::styleFont(FontRole role) const {
  const FontSample& sample = session().style.Formfont.Label2.at(static_cast<std::size_t>(role));
  return {sample.fontname, sample.fontsize};
}

Font Drawing::font(const TextKind& kind) const {
  Font font = styleFont(kind.role);
  const float own = (form.*kind.form).size;
  if (own > 0) font.size = own;
  font.bold = form.bold;
  return font;
}

void Drawing::text(const TextKind& kind, double x, double y, std::string_view text,
                   Colour colour) const {
  const TextForm& shift = form.*kind.form;
  target.picture().text(x + shift.right, y + shift.down, text, font(kind), colour);
}

void Drawing::setPen(int width, LineStyle style) const {
  target.pen().width = width;
  target.pen().style = style;
}

void Drawing::line(double x1, double y1, double x2, double y2, Colour colour) const {
  const PenState pen = target.pen();
  target.picture().line(x1, y1, x2, y2, {colour, pen.width, pen.style});
}

void Drawing::disc(double x, double y, Colour colour) const {
  const PenState pen = target.pen();
  target.picture().disc(x, y, form.discRadius, {colour, pen.width, pen.style}, colour);
}

double halfWidth(std::string_view text, double characterWidth) {
  return static_cast<double>(text.size()) * characterWidth / 2;
}

}  // namespace zevfit
