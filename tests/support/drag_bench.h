#pragma once

#include <string>
#include <vector>

#include "plot/window/drag_events.h"
#include "plot/window/grip_events.h"
#include "session/line.h"
#include "tests/support/plot_bench.h"

namespace zevfit {

/// The sample with all lines in use, drawn in a window of standard size: the box of its plot goes
/// from 800 to 5668 and from 600 to 3120, the sill 2.5 lies at 2490 and the range 25 at 2017.
/// Drawings stand in the calls of the window as "draw".
struct DragBench : PlotBench {
  DragBench() {
    const double sills[] = {2, 2.5, 5, 7.5};
    for (const Line which : kLines) {
      const LineRef at = line(session, kPair, which);
      at.use(1);
      at.sill() = sills[indexOf(which)];
      if (which != Line::nugget) at.range() = 10 * sills[indexOf(which)];
    }
    draw();
    forget();
  }

  void plotvariogram() override {
    window().calls.emplace_back("draw");
    PlotBench::plotvariogram();
  }

  /// What was done so far.
  void forget() {
    drawings = 0;
    window().calls.clear();
    panel.calls.clear();
  }

  bool& held(Line handle) { return session.dragsel.at(indexOf(handle)); }
  void holdAll() { session.dragsel.fill(true); }
  /// The selected line, without an event.
  void select(Line which) { session.sel = which; }
  double sill(Line which) { return line(session, kPair, which).sill().number(); }
  double range(Line which) { return line(session, kPair, which).range().number(); }

  void press(Line handle, MouseButton button = MouseButton::left) {
    estru_MouseDown(fit.session, fit.panel, window(), handle, button);
  }
  void release(Line handle, MouseButton button = MouseButton::left) {
    estru_MouseUp(fit.session, fit.panel, window(), handle, button);
  }
  void moveTo(double x, double y) { Picture4_MouseMove(fit, windows, window(), x, y); }
};

using Calls = std::vector<std::string>;

}  // namespace zevfit
