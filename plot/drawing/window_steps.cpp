#include "plot/drawing/window_steps.h"

#include <array>
#include <string>

#include "plot/drawing/window_key.h"
#include "session/line.h"

namespace zevfit {
namespace {

constexpr std::array kLineBoxes{Box::plot1, Box::plot2, Box::plot3, Box::plot4};
static_assert(kLineBoxes.size() == kLines.size());

constexpr double kTitleTop = 100;

}  // namespace

void mirrorBoxes(Fit& fit) {
  const Session& session = fit.session;
  FitPanel& panel = fit.panel;
  for (const Line which : kLines)
    panel.setTicked(kLineBoxes.at(indexOf(which)), line(session, session.plotted(), which).isOn());
  panel.setTicked(Box::psill, session.showsill(session.plotted()));
}

void colourOverlays(const Session& session, PlotWindow& window) {
  window.setOverlayColours(session.style.cores.ink(), session.style.cores.paper());
}

void writeCaption(const Session& session, PlotWindow& window) {
  window.setCaption(windowCaption(session, session.plotted()));
}

void clearPicture(Drawing& drawing) {
  drawing.target.picture().clear(drawing.colours().paper());
  drawing.clears = ++drawing.target.pen().clears;
}

void drawTitle(Drawing& drawing) {
  const std::string title = "Semivariogram (" + std::string(drawing.directionName()) + ")";
  // The label that measures has the style's font, whatever form the title itself has.
  const double width = drawing.target.measureTitle(title, drawing.styleFont(FontRole::title));
  const double x = drawing.box().pictureW / 2 - width / 2;
  drawing.text(kTitle, x, kTitleTop, title, drawing.colours().ink());
}

void sizeWindow(PlotWindow& window) {
  if (!window.visible()) window.setSize(kStandardWidth, kStandardHeight);
  window.setPictureSize(window.width() - kFrameWidth, window.height() - kFrameHeight);
}

}  // namespace zevfit
