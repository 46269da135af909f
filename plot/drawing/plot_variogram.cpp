#include "plot/drawing/plot_variogram.h"

#include "model/fields.h"
#include "model/refresh.h"
#include "plot/drawing/data_steps.h"
#include "plot/drawing/drawn_misfit.h"
#include "plot/drawing/frame.h"
#include "plot/drawing/plot_kept.h"
#include "plot/drawing/window_key.h"
#include "plot/drawing/window_steps.h"
#include "session/fault.h"
#include "session/illegal_cell.h"
#include "session/line.h"
#include "session/policy.h"

namespace zevfit {
namespace {

/// The picture without numbers and data.
void drawWindowFrame(Drawing& drawing, PlotWindow& window) {
  window.misfit().reset();
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

void drawData(Fit& fit, Drawing& drawing, PlotWindow& window) {
  catchUpSliders(fit);
  startDistanceAxis(drawing);
  refreshModel(fit);
  showVariance(fit);
  renewFrame(drawing, window);
  drawContent(drawing);
  window.toFront();
  window.misfit() = drawnMisfit(fit.session);
}

}  // namespace

void selectFirstStructure(Fit& fit, Pair pair) {
  Session& session = fit.session;
  if (!session.hasmodel || session.modelshown) return;
  if (line(session, pair, Line::first).isOn()) fit.panel.selectLine(Line::first);
  session.modelshown = true;
}

void plotvariogram(Fit& fit, PlotWindows& windows) {
  if (!requireFile(fit)) return;
  Session& session = fit.session;
  if (session.curvar == 0 || session.curdir == 0) return;
  // The boxes could not show it; handlers that catch no failure warn of it before they draw.
  if (const auto illegal = illegalFlag(session, session.current())) throw Fault(*illegal);
  PlotWindow& window = windows.plotwin(session.current());
  if (window.minimised()) window.restore();
  selectFirstStructure(fit, session.current());
  // What stands in the field is of the pair of the drawing before.
  const bool isTyped = session.plotted() == session.current() && session.atyped(session.current());
  const std::string range = fit.panel.text(Field::a);
  session.setPlotted(session.current());
  Drawing drawing{session, window, kScreenPlot};
  mirrorBoxes(fit);
  colourOverlays(session, window);
  writeCaption(session, window);
  drawWindowFrame(drawing, window);
  endSilently([&] { drawData(fit, drawing, window); });
  if (isTyped) tellDrawnRange(fit, range);
}

void redrawPlot(Fit& fit, PlotWindow& window) {
  Session& session = fit.session;
  const Pair pair = windowKey(window.caption());
  if (!session.loaded || pair.variable < 1 || pair.direction < 1) return;
  // The frame could not be drawn; a resize is nothing to be warned at.
  if (illegalFlag(session, pair)) return;
  const PlotKept kept(session);
  const bool hasCurve = pair == session.plotted();
  session.setPlotted(pair);
  Drawing drawing{session, window, kScreenPlot};
  sizeWindow(window);
  clearPicture(drawing);
  drawTitle(drawing);
  drawFrame(drawing);
  endSilently([&] {
    if (hasCurve) return drawContent(drawing);
    window.misfit().reset();
    sampleModel(fit);
    drawContent(drawing);
    window.misfit() = drawnMisfit(session);
  });
}

}  // namespace zevfit
