#include "plot/window/activation.h"

#include "model/sliders.h"
#include "plot/drawing/window_key.h"
#include "session/line.h"
#include "session/policy.h"

namespace zevfit {
namespace {

// The border goes to the nugget's handle alone: one of another line that was held still looks so.
void freeHandles(Session& session, PlotWindow& window) {
  session.dragsel = {};
  window.setHandleBorder(Line::nugget, true);
  window.hideGuides();
}

// The two sides of the frame are exchanged, so that a window fits its picture only where the user
// has made it wider and lower by their difference: every other activation redraws.
bool isUpToDate(const PlotWindow& window) {
  return window.width() - kFrameHeight == window.pictureWidth() &&
         window.height() - kFrameWidth == window.pictureHeight();
}

void bringUpToDate(Fit& fit) {
  Session& session = fit.session;
  fit.panel.setListPosition(List::Combo2, static_cast<int>(session.curvar - 1));
  fit.panel.setListPosition(List::Combodirvar, static_cast<int>(session.curdir - 1));
  showmodel(fit, session.current());
  scalesliders(fit, session.current());
  session.ctotal(session.current()) = totalSill(session, session.current());
  fit.plotter.plotvariogram();
}

}  // namespace

void activatePlotWindow(Fit& fit, PlotWindow& window) {
  Session& session = fit.session;
  window.endDelete();
  session.dragging = false;
  takeKey(session, window);
  if (session.curvar < 1 || session.curdir < 1) return;
  freeHandles(session, window);
  endSilently([&] {
    if (!isUpToDate(window)) bringUpToDate(fit);
  });
}

}  // namespace zevfit
