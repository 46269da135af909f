#include "plot/drawing/data_steps.h"

#include "model/sliders.h"
#include "plot/drawing/data_points.h"
#include "session/number_pattern.h"

namespace zevfit {
namespace {

constexpr const char* kVariancePattern = "####.###";

}  // namespace

void catchUpSliders(Fit& fit) { resynchroniseSliders(fit, fit.session.plotted()); }

void startDistanceAxis(Drawing& drawing) {
  double& xmax = drawing.cell(&Session::xmax);
  if (xmax == 0) xmax = drawing.cell(&Session::hmax);
}

void showVariance(Fit& fit) {
  const Session& session = fit.session;
  const double variance = session.variance(session.plotvar).number();
  fit.panel.setCaption(Caption::Labelvariance, formatNumber(variance, kVariancePattern));
}

void placeCurvePen(Drawing& drawing) {
  const PlotMap map = drawing.map();
  drawing.curvex = map.x(drawing.session().curveh(1));
  drawing.curvey = map.y(drawing.session().curvegam(1));
}

void drawSillLine(Drawing& drawing) {
  if (!drawing.cell(&Session::showsill)) return;
  const Session& session = drawing.session();
  const PlotMap map = drawing.map();
  const double y = map.y(session.variance(session.plotvar).number());
  drawing.line(map.box.xright(), y, PlotBox::xleft, y, drawing.colours().sill());
}

void drawDataPoints(Drawing& drawing) {
  const Session& session = drawing.session();
  const PlotMap map = drawing.map();
  const DataPoints points(session, session.plotted());
  for (std::int64_t lag = 1, last = points.last(); lag <= last; ++lag) {
    const auto point = points(lag);
    if (point) drawing.disc(map.x(point->h), map.y(point->gamma), drawing.colours().data());
  }
}

void drawModelCurve(Drawing& drawing) {
  if (!drawing.hasModel()) return;
  const Session& session = drawing.session();
  const PlotMap map = drawing.map();
  for (int i = 1; i <= kCurvePoints; ++i) {
    const double gamma = session.curvegam(i);
    if (gamma > map.ymax || gamma < map.ymin) continue;
    const double x = map.x(session.curveh(i));
    const double y = map.y(gamma);
    drawing.line(drawing.curvex, drawing.curvey, x, y, drawing.colours().curve());
    drawing.curvex = x;
    drawing.curvey = y;
  }
}

}  // namespace zevfit
