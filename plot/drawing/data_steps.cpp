#include "plot/drawing/data_steps.h"

#include "model/model_curve.h"
#include "model/sliders.h"
#include "plot/drawing/data_points.h"
#include "session/number_pattern.h"

namespace zevfit {
namespace {

constexpr const char* kVariancePattern = "####.###";
constexpr int kCurvePoints = 100;

}  // namespace

void catchUpSliders(Drawing& drawing) {
  const Session& session = drawing.session();
  resynchroniseSliders(drawing.fit, session.plotdir, session.plotvar);
}

void startDistanceAxis(Drawing& drawing) {
  double& xmax = drawing.cell(&Session::xmax);
  if (xmax == 0) xmax = drawing.cell(&Session::hmax);
}

void refreshModel(Drawing& drawing) {
  const Session& session = drawing.session();
  showmodel(drawing.fit, session.plotdir, session.plotvar);
  scalesliders(drawing.fit, session.plotdir, session.plotvar);
  sampleModel(drawing);
}

void sampleModel(Drawing& drawing) {
  const Session& session = drawing.session();
  modelcurve(drawing.fit, session.plotdir, session.plotvar, drawing.cell(&Session::ymax),
             drawing.cell(&Session::xmax));
}

void showVariance(Drawing& drawing) {
  const Session& session = drawing.session();
  const double variance = session.variance(session.plotvar).number();
  drawing.fit.panel.setCaption(Caption::Labelvariance, formatNumber(variance, kVariancePattern));
}

void placeCurvePen(Drawing& drawing) {
  const PlotMap map = drawing.map();
  drawing.curvex = map.x(drawing.session().curveh(1));
  drawing.curvey = map.y(drawing.session().curvegam(1));
}

void drawSillLine(Drawing& drawing) {
  if (drawing.cell(&Session::showsill) != 1) return;
  const Session& session = drawing.session();
  const PlotMap map = drawing.map();
  const double y = map.y(session.variance(session.plotvar).number());
  drawing.line(map.box.xright(), y, PlotBox::xleft, y, drawing.colours().Label4);
}

void drawDataPoints(Drawing& drawing) {
  const Session& session = drawing.session();
  const PlotMap map = drawing.map();
  const std::int64_t last = lastClass(session, session.plotvar, session.plotdir);
  for (std::int64_t lag = 1; lag <= last; ++lag) {
    const auto point = shownPoint(session, session.plotvar, session.plotdir, lag);
    if (point) drawing.disc(map.x(point->h), map.y(point->gamma), drawing.colours().Label2);
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
    drawing.line(drawing.curvex, drawing.curvey, x, y, drawing.colours().Label3);
    drawing.curvex = x;
    drawing.curvey = y;
  }
}

}  // namespace zevfit
