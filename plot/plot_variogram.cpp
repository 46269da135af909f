#include "plot/plot_variogram.h"

#include <array>
#include <span>

#include "plot/drawing_steps.h"

namespace zevfit {
namespace {

// On purpose not the pair's own cell: the legend looks at (direction, variable), while the line
// itself follows (variable, direction).
bool exchangedShowsSill(const Session& session, std::int64_t variable, std::int64_t direction) {
  return session.showsill(direction, variable) == 1;
}

constexpr PlotForm kScreenPlot{27, kCharacterWidth, exchangedShowsSill};

using Step = void (*)(Drawing&);

void run(std::span<const Step> steps, Drawing& drawing) {
  for (const Step step : steps) step(drawing);
}

/// A fault in these and in the frame is the caller's.
constexpr auto kWindowSteps = std::to_array<Step>({mirrorBoxes, colourOverlays, writeCaption});

constexpr auto kFrameSteps = std::to_array<Step>(
    {clearPicture, drawTitle, sizeWindow, drawDataCaption, drawModelCaption, drawSemivarianceLabel,
     drawDistanceLegend, drawDataSymbol, drawSillCaption, drawVariableName, drawModelSample,
     drawSillSample, drawAxes, drawGrid, drawTicks});

/// The refresh may have run a drawing of its own, by way of the controls: what follows would then
/// lie twice on the picture, and smooth texts and lines would come out heavier.
void renewFrame(Drawing& drawing) {
  if (drawing.window.pen().clears != drawing.clears) run(kFrameSteps, drawing);
}

/// A fault here ends the drawing silently.
constexpr auto kDataSteps = std::to_array<Step>(
    {catchUpSliders, startDistanceAxis, refreshModel, showVariance, renewFrame, drawAxisNumbers,
     placeCurvePen, drawSillLine, drawDataPoints, drawModelCurve});

/// The first drawing after a load with models selects structure 1, where the pair has one.
void selectFirstStructure(Fit& fit) {
  Session& session = fit.session;
  if (session.hasmodel != 1 || session.modelshown != 0) return;
  if (flag(session, 1, session.curvar, session.curdir) == 1) fit.panel.selectLine(1);
  session.modelshown = 1;
}

void drawData(Drawing& drawing) {
  try {
    run(kDataSteps, drawing);
    drawing.window.toFront();
  } catch (const Fault&) {
    // What is drawn stays.
  }
}

}  // namespace

void plotvariogram(Fit& fit, PlotWindows& windows) {
  if (!requireFile(fit)) return;
  Session& session = fit.session;
  if (session.curvar == 0 || session.curdir == 0) return;
  PlotWindow& window = windows.plotwin(session.curdir, session.curvar);
  if (window.minimised()) window.restore();
  selectFirstStructure(fit);
  session.plotvar = session.curvar;
  session.plotdir = session.curdir;
  Drawing drawing{fit, window, kScreenPlot};
  run(kWindowSteps, drawing);
  run(kFrameSteps, drawing);
  drawData(drawing);
}

}  // namespace zevfit
