#include "plot/window/activation.h"

#include "model/sliders.h"
#include "plot/drawing/window_key.h"

namespace zevfit {
namespace {

// The border goes to handle 0 each time, on purpose: the others keep the one they had.
void freeHandles(Session& session, PlotWindow& window) {
  for (std::size_t i = 0; i < 4; ++i) {
    session.dragsel.at(i) = 0;
    window.setHandleBorder(0, true);
  }
  window.hideGuides();
}

// The two sides of the frame are exchanged on purpose: a window fits its picture so only where the
// user has made it wider and lower by their difference, so that every other activation redraws.
bool isUpToDate(const PlotWindow& window) {
  return window.width() - kFrameHeight == window.pictureWidth() &&
         window.height() - kFrameWidth == window.pictureHeight();
}

void bringUpToDate(Fit& fit) {
  Session& session = fit.session;
  fit.panel.setListPosition(List::Combo2, static_cast<int>(session.curvar - 1));
  fit.panel.setListPosition(List::Combodirvar, static_cast<int>(session.curdir - 1));
  showmodel(fit, session.curdir, session.curvar);
  scalesliders(fit, session.curdir, session.curvar);
  session.ctotal(session.curvar, session.curdir) =
      totalSill(session, session.curvar, session.curdir);
  fit.plotter.plotvariogram();
}

}  // namespace

void activatePlotWindow(Fit& fit, PlotWindow& window) {
  Session& session = fit.session;
  window.endDelete();
  session.dragging = 0;
  takeKey(session, window);
  if (session.curvar < 1 || session.curdir < 1) return;
  freeHandles(session, window);
  try {
    if (!isUpToDate(window)) bringUpToDate(fit);
  } catch (const std::exception&) {
    // Ends silently with what is done.
  }
}

}  // namespace zevfit
