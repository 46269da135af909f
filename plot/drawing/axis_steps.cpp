#include "plot/drawing/axis_steps.h"

#include <string>

#include "session/number_pattern.h"

namespace zevfit {
namespace {

constexpr double kDivisions = 5;
constexpr double kTickBelow = 10, kTickAbove = 10;
// A tick of the semivariance axis reaches less far out of the box, where the numbers stand.
constexpr double kTickOut = 5, kTickIn = 10;
constexpr double kOriginShift = 50;
constexpr double kSemivarianceRise = 80;

void drawNumber(const Drawing& drawing, const TextKind& kind, double x, double y,
                const std::string& number) {
  drawing.text(kind, x - halfWidth(number, kCharacterWidth), y, number, drawing.colours().ink());
}

void drawDistanceNumbers(const Drawing& drawing) {
  const PlotBox box = drawing.box();
  const double step = drawing.cell(&Session::xmax) / kDivisions;
  for (int k = 1; k <= 5; ++k) {
    const std::string number = formatNumber(k * step, drawing.session().xformat);
    drawNumber(drawing, kDistanceNumber, box.xgrid(k), box.ybottom(), number);
  }
}

void drawSemivarianceNumbers(const Drawing& drawing) {
  const PlotBox box = drawing.box();
  const double ymin = drawing.cell(&Session::ymin);
  const double step = (drawing.cell(&Session::ymax) - ymin) / kDivisions;
  for (int k = 5; k >= 1; --k) {
    const std::string number = formatNumber(ymin + k * step, drawing.session().yformat);
    drawNumber(drawing, kSemivarianceNumber, PlotBox::xleft, box.ygrid(5 - k) - kSemivarianceRise,
               number);
  }
}

}  // namespace

void drawAxes(Drawing& drawing) {
  const PlotBox box = drawing.box();
  const Colour colour = drawing.colours().ink();
  drawing.setPen(1, drawing.target.pen().style);
  drawing.line(PlotBox::xleft, PlotBox::ytop, PlotBox::xleft, box.ybottom(), colour);
  drawing.line(PlotBox::xleft, box.ybottom(), box.xright(), box.ybottom(), colour);
}

void drawGrid(Drawing& drawing) {
  const PlotBox box = drawing.box();
  const Colour colour = drawing.session().axiscolor;
  drawing.setPen(1, LineStyle::dotted);
  for (int k = 1; k <= 5; ++k) {
    drawing.line(box.xgrid(k), PlotBox::ytop, box.xgrid(k), box.ybottom(), colour);
  }
  for (int k = 0; k <= 4; ++k) {
    drawing.line(PlotBox::xleft, box.ygrid(k), box.xright(), box.ygrid(k), colour);
  }
}

void drawTicks(Drawing& drawing) {
  const PlotBox box = drawing.box();
  const Colour colour = drawing.colours().ink();
  drawing.setPen(2, LineStyle::solid);
  for (int k = 1; k <= 5; ++k) {
    drawing.line(box.xgrid(k), box.ybottom() - kTickAbove, box.xgrid(k), box.ybottom() + kTickBelow,
                 colour);
  }
  for (int k = 0; k <= 4; ++k) {
    drawing.line(PlotBox::xleft - kTickOut, box.ygrid(k), PlotBox::xleft + kTickIn, box.ygrid(k),
                 colour);
  }
}

void drawAxisNumbers(Drawing& drawing) {
  Session& session = drawing.session();
  session.xformat = session.style.Formfont.formato[1];
  session.yformat = session.style.Formfont.formato[0];
  // The origin says 0 whatever the axis begins with.
  drawing.text(kOrigin, PlotBox::xleft - kOriginShift, drawing.box().ybottom(), "0",
               drawing.colours().ink());
  drawDistanceNumbers(drawing);
  drawSemivarianceNumbers(drawing);
}

}  // namespace zevfit
