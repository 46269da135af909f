#include "plot/drawing/plot_variogram.h"

#include "plot/drawing/data_steps.h"
#include "plot/drawing/frame.h"
#include "plot/drawing/window_steps.h"
#include "session/policy.h"

namespace zevfit {
namespace {

/// The picture without numbers and data.
void drawWindowFrame(Drawing& drawing, PlotWindow& window) {
  clearPicture(drawing);
  drawTitle(drawing);
  sizeWindow(window);
  drawFrame(drawing);
}

/// The refresh may have run a drawing of its own, by way of the controls: what follows would then
/// lie twice on the picture, and smooth texts and lines would come out heavier.
void renewFrame(Drawing& drawing, PlotWindow& window) {
  if (window.pen().clears != drawing.clears) drawWindowFrame(drawing, window);
}

void drawData(Drawing& drawing, PlotWindow& window) {
  catchUpSliders(drawing);
  startDistanceAxis(drawing);
  refreshModel(drawing);
  showVariance(drawing);
  renewFrame(drawing, window);
  drawContent(drawing);
  window.toFront();
}

}  // namespace

void selectFirstStructure(Fit& fit, std::int64_t variable, std::int64_t direction) {
  Session& session = fit.session;
  if (session.hasmodel != 1 || session.modelshown != 0) return;
  if (flag(session, 1, variable, direction) == 1) fit.panel.selectLine(1);
  session.modelshown = 1;
}

void plotvariogram(Fit& fit, PlotWindows& windows) {
  if (!requireFile(fit)) return;
  Session& session = fit.session;
  if (session.curvar == 0 || session.curdir == 0) return;
  PlotWindow& window = windows.plotwin(session.curdir, session.curvar);
  if (window.minimised()) window.restore();
  selectFirstStructure(fit, session.curvar, session.curdir);
  session.plotvar = session.curvar;
  session.plotdir = session.curdir;
  Drawing drawing{fit, window, kScreenPlot};
  mirrorBoxes(drawing);
  colourOverlays(session, window);
  writeCaption(session, window);
  drawWindowFrame(drawing, window);
  endSilently([&] { drawData(drawing, window); });
}

}  // namespace zevfit
