#include "plot/drawing/window_steps.h"

#include <array>
#include <string>

#include "plot/drawing/window_key.h"

namespace zevfit {
namespace {

constexpr std::array kLineBoxes{Box::plot1, Box::plot2, Box::plot3, Box::plot4};
static_assert(kLineBoxes.size() == kLines);

constexpr double kTitleTop = 100;

}  // namespace

void mirrorBoxes(Drawing& drawing) {
  const Session& session = drawing.session();
  FitPanel& panel = drawing.fit.panel;
  for (int line = 0; line < kLines; ++line) {
    const bool used = flag(session, line, session.plotvar, session.plotdir) == 1;
    panel.setTicked(kLineBoxes.at(static_cast<std::size_t>(line)), used);
  }
  panel.setTicked(Box::psill, drawing.cell(&Session::showsill) == 1);
}

void colourOverlays(const Session& session, PlotWindow& window) {
  window.setOverlayColours(session.style.cores.Label1, session.style.cores.Label5);
}

void writeCaption(const Session& session, PlotWindow& window) {
  window.setCaption(windowCaption(session, session.plotvar, session.plotdir));
}

void clearPicture(Drawing& drawing) {
  drawing.target.picture().clear(drawing.colours().Label5);
  drawing.clears = ++drawing.target.pen().clears;
}

void drawTitle(Drawing& drawing) {
  const std::string title = "Semivariogram (" + std::string(drawing.directionName()) + ")";
  // The label that measures has the style's font, whatever form the title itself has.
  const double width = drawing.target.measureTitle(title, drawing.styleFont(FontRole::title));
  const double x = drawing.box().pictureW / 2 - width / 2;
  drawing.text(kTitle, x, kTitleTop, title, drawing.colours().Label1);
}

void sizeWindow(PlotWindow& window) {
  if (!window.visible()) window.setSize(kStandardWidth, kStandardHeight);
  window.setPictureSize(window.width() - kFrameWidth, window.height() - kFrameHeight);
}

}  // namespace zevfit
