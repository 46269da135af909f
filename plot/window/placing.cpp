#include "plot/window/placing.h"

#include <vector>

#include "plot/drawing/window_key.h"
#include "plot/window/handles.h"
#include "plot/window/overlays.h"
#include "session/line.h"
#include "session/policy.h"

namespace zevfit {
namespace {

/// The semivariance axis is that of the last drawing's pair, the distance axis that of the current
/// one: behind a change of plots a handle's height still follows the former plot. The picture
/// counts with its border, as it does for the drawing.
PlotMap placingMap(const Session& session, const DirectionWindow& window) {
  return {{window.pictureWidth(), window.pictureHeight()},
          session.xmax(session.current()),
          session.ymin(session.plotted()),
          session.ymax(session.plotted())};
}

/// False where the handle stays hidden.
bool placeHandle(const Session& session, DirectionWindow& window, const PlotMap& map, Line handle) {
  const std::optional<Point> place = handlePlace(session, map, handle, session.current());
  if (!place) return false;
  const double shift = handleForm(handle).leftOfPlace ? window.handleWidth(handle) : 0;
  window.moveHandle(handle, place->x - shift, place->y);
  window.showHandle(handle, true);
  return true;
}

void bringOutHandles(Session& session, Plotter& plotter, Hints& hints, DirectionWindow& window) {
  hideHandles(window);
  // Of the pair that was current until now: a redraw of it keeps its range.
  session.atyped(session.current()) = true;
  window.hideGuides();
  takeKey(session, window);
  const PlotMap map = placingMap(session, window);
  std::vector<Line> hidden;
  for (const Line handle : kLines)
    if (!placeHandle(session, window, map, handle)) hidden.push_back(handle);
  plotter.plotvariogram();
  endSilently(
      [&] { hints.hint(HintTopic::range, outOfView(session, map, hidden, session.current())); });
}

}  // namespace

// Any fault frees and hides all handles and ends the handler.
void Picture4_MouseUp(Session& session, Plotter& plotter, Hints& hints, DirectionWindow& window) {
  attempt([&] { bringOutHandles(session, plotter, hints, window); },
          [&] {
            session.dragsel = {};
            hideHandles(window);
            hints.hint(HintTopic::range, "");
          });
}

}  // namespace zevfit
