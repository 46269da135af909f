#include <algorithm>

#include "model/model_curve.h"
#include "model/sliders.h"
#include "plot/drawing_steps.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

constexpr const char* kVariancePattern = "####.###";
constexpr int kCurvePoints = 100;

/// The last class that can give a point or a fault: what no table holds is a class without pairs,
/// however many classes a file has claimed.
std::int64_t lastClass(const Session& session) {
  const std::size_t slots = std::max(session.gam.written(session.plotvar, session.plotdir).size(),
                                     session.hlag.written(session.plotvar, session.plotdir).size());
  return std::min(session.nclass, static_cast<std::int64_t>(slots) - 1);
}

/// Each test is made every time, so that a distance that is a text ends the drawing in any class.
bool isShown(double h, double gamma, float pairs, const PlotMap& map) {
  const bool inside = gamma <= map.ymax && h <= map.xmax;
  return inside && pairs != 0 && gamma != 0;
}

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
  const std::int64_t variable = session.plotvar;
  const std::int64_t direction = session.plotdir;
  const PlotMap map = drawing.map();
  const std::int64_t last = lastClass(session);
  for (std::int64_t lag = 1; lag <= last; ++lag) {
    const double h = session.hlag(variable, direction, lag).number();
    const double gamma = session.gam(variable, direction, lag);
    if (!isShown(h, gamma, session.npairs(variable, direction, lag), map)) continue;
    drawing.disc(map.x(h), map.y(gamma), drawing.colours().Label2);
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
