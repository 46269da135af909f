#include "plot/window/placing.h"

#include "plot/drawing/window_key.h"
#include "plot/window/handles.h"
#include "plot/window/overlays.h"
#include "session/fault.h"

namespace zevfit {
namespace {

/// The semivariance axis is that of the last drawing's pair, on purpose, the distance axis that of
/// the current one. The picture counts with its border, as it does for the drawing.
PlotMap placingMap(const Session& session, const DirectionWindow& window) {
  return {{window.pictureWidth(), window.pictureHeight()},
          session.xmax(session.curvar, session.curdir),
          session.ymin(session.plotvar, session.plotdir),
          session.ymax(session.plotvar, session.plotdir)};
}

void placeHandle(const Session& session, DirectionWindow& window, const PlotMap& map, int handle) {
  const std::optional<Point> place =
      handlePlace(session, map, handle, session.curvar, session.curdir);
  if (!place) return;
  const double shift = handleForm(handle).leftOfPlace ? window.handleWidth(handle) : 0;
  window.moveHandle(handle, place->x - shift, place->y);
  window.showHandle(handle, true);
}

void bringOutHandles(Fit& fit, DirectionWindow& window) {
  Session& session = fit.session;
  hideHandles(window);
  // Of the pair that was current until now, on purpose.
  session.atyped(session.curvar, session.curdir) = 1;
  window.hideGuides();
  takeKey(session, window);
  const PlotMap map = placingMap(session, window);
  for (int handle = 0; handle < kHandles; ++handle) placeHandle(session, window, map, handle);
  fit.plotter.plotvariogram();
}

}  // namespace

// Any fault frees and hides all handles and ends the handler.
void Picture4_MouseUp(Fit& fit, DirectionWindow& window) {
  try {
    bringOutHandles(fit, window);
  } catch (const std::exception&) {
    fit.session.dragsel.fill(0);
    hideHandles(window);
  }
}

}  // namespace zevfit
