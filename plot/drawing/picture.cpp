#include "plot/drawing/picture.h"

#include "model/model_curve.h"
#include "plot/drawing/data_steps.h"
#include "plot/drawing/frame.h"
#include "plot/drawing/window_steps.h"
#include "session/policy.h"

namespace zevfit {
namespace {

/// As the drawing before has left it.
constexpr PenState kPenDrawnWith{.width = 2};

void drawData(Drawing& drawing, Pair pair) {
  startDistanceAxis(drawing);
  Session& session = drawing.session();
  // A structure that is refused leaves the curve as it was sampled last; the plot itself has
  // warned.
  static_cast<void>(sampleCurve(session, pair, session.xmax(pair)));
  drawContent(drawing);
}

}  // namespace

void drawPicture(const Session& session, Pair pair, PlotPicture& target) {
  Session copy = session;
  copy.setPlotted(pair);
  target.pen() = kPenDrawnWith;
  Drawing drawing{copy, target, kScreenPlot};
  clearPicture(drawing);
  drawTitle(drawing);
  drawFrame(drawing);
  endSilently([&] { drawData(drawing, pair); });
}

}  // namespace zevfit
