#include "report/thumbnail.h"

#include "plot/drawing/data_points.h"
#include "report/collection.h"
#include "session/line.h"
#include "session/policy.h"

namespace zevfit {
namespace {

constexpr double kMargin = 50;
constexpr double kDisc = 10;
constexpr int kPen = 2;

/// The current plot as a sketch: no frame, no grid and no text.
struct Sketch {
  const Session& session;
  Surface& picture;
  double right, bottom;  ///< of the box, which begins at the margin
  Pair pair = session.current();

  double ymin() const { return session.ymin(pair); }
  double ymax() const { return session.ymax(pair); }
  double x(double h) const {
    return finite(kMargin + divide(h * (right - kMargin), session.xmax(pair)));
  }
  double y(double gamma) const {
    const double range = finite(ymax() - ymin());
    return finite(bottom + divide((gamma - ymin()) * (kMargin - bottom), range));
  }
};

void drawVarianceLine(const Sketch& sketch) {
  const Session& session = sketch.session;
  if (!session.showsill(sketch.pair)) return;
  const double y = sketch.y(session.variance(sketch.pair.variable).number());
  sketch.picture.line(kMargin, y, sketch.right, y, {session.style.cores.sill(), kPen});
}

void drawPoints(const Sketch& sketch) {
  const Session& session = sketch.session;
  const Colour colour = session.style.cores.data();
  const DataPoints points(session, sketch.pair);
  for (std::int64_t lag = 1, last = points.last(); lag <= last; ++lag) {
    const auto point = points(lag);
    if (!point) continue;
    sketch.picture.disc(sketch.x(point->h), sketch.y(point->gamma), kDisc, {colour, kPen}, colour);
  }
}

/// Points off the axis leave a straight bridge.
void drawCurve(const Sketch& sketch) {
  const Session& session = sketch.session;
  if (!hasModel(session, sketch.pair)) return;
  double fromx = sketch.x(session.curveh(1)), fromy = sketch.y(session.curvegam(1));
  for (int i = 1; i <= kCurvePoints; ++i) {
    const double gamma = session.curvegam(i);
    if (gamma < sketch.ymin() || gamma > sketch.ymax()) continue;
    const double x = sketch.x(session.curveh(i)), y = sketch.y(gamma);
    sketch.picture.line(fromx, fromy, x, y, {session.style.cores.curve(), kPen});
    fromx = x;
    fromy = y;
  }
}

}  // namespace

void variog(Collection& reports, double width, double height) {
  if (!requireFile(reports.fit)) return;
  Session& session = reports.fit.session;
  Surface& picture = reports.window.thumbnail(width, height);
  picture.clear(kWhite);
  endSilently([&] {
    double& xmax = session.xmax(session.current());
    if (xmax == 0) xmax = session.hmax(session.current());
    const Sketch sketch{session, picture, width - kMargin, height - kMargin};
    drawVarianceLine(sketch);
    drawPoints(sketch);
    drawCurve(sketch);
  });
}

}  // namespace zevfit
