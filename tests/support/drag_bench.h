#pragma once

#include <string>
#include <vector>

#include "plot/window/drag_events.h"
#include "plot/window/grip_events.h"
#include "tests/support/plot_bench.h"

namespace zevfit {

/// The sample with all lines in use, drawn in a window of standard size: the box of its plot goes
/// from 800 to 5668 and from 600 to 3120, the sill 2.5 lies at 2490 and the range 25 at 2017.
/// Drawings stand in the calls of the window as "draw".
struct DragBench : PlotBench {
  DragBench() {
    const double sills[] = {2, 2.5, 5, 7.5};
    for (int line = 0; line < kLines; ++line) {
      const auto at = static_cast<std::size_t>(line);
      setFlag(session, line, kVariable, kDirection, 1);
      (session.*kSillTable.at(at))(kVariable, kDirection) = sills[at];
      if (line > 0) (session.*kRangeTable.at(at))(kVariable, kDirection) = 10 * sills[at];
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

  int& held(int handle) { return session.dragsel.at(static_cast<std::size_t>(handle)); }
  void holdAll() { session.dragsel = {1, 1, 1, 1, 1}; }
  /// The selected line, without an event.
  void select(int line) {
    session.sel = {};
    session.sel.at(static_cast<std::size_t>(line)) = 1;
  }
  double sill(int line) {
    return (session.*kSillTable.at(static_cast<std::size_t>(line)))(kVariable, kDirection).number();
  }
  double range(int line) {
    return (session.*kRangeTable.at(static_cast<std::size_t>(line)))(kVariable, kDirection)
        .number();
  }

  void press(int handle, MouseButton button = MouseButton::left) {
    estru_MouseDown(fit, window(), handle, button);
  }
  void release(int handle, MouseButton button = MouseButton::left) {
    estru_MouseUp(fit, window(), handle, button);
  }
  void moveTo(double x, double y) { Picture4_MouseMove(fit, windows, window(), x, y); }
};

using Calls = std::vector<std::string>;

}  // namespace zevfit
