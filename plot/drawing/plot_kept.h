#pragma once

#include "session/session.h"

namespace zevfit {

/// What a drawing beside those of the plots sets for itself, put back at the end: the pairs and the
/// curve of the plot on the screen, which controls and thumbnails go on with.
class PlotKept {
 public:
  explicit PlotKept(Session& session)
      : session_(session),
        current_(session.current()),
        plotted_(session.plotted()),
        curveh_(session.curveh),
        curvegam_(session.curvegam) {}
  PlotKept(const PlotKept&) = delete;
  PlotKept& operator=(const PlotKept&) = delete;
  ~PlotKept() {
    session_.setCurrent(current_);
    session_.setPlotted(plotted_);
    session_.curveh = curveh_;
    session_.curvegam = curvegam_;
  }

 private:
  Session& session_;
  Pair current_, plotted_;
  decltype(Session::curveh) curveh_, curvegam_;
};

}  // namespace zevfit
