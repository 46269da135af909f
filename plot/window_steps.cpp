#include <array>
#include <string>

#include "plot/drawing_steps.h"
#include "plot/plot_variogram.h"

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

void colourOverlays(Drawing& drawing) {
  drawing.window.setOverlayColours(drawing.colours().Label1, drawing.colours().Label5);
}

void writeCaption(Drawing& drawing) {
  const Session& session = drawing.session();
  drawing.window.setCaption(windowCaption(session, session.plotvar, session.plotdir));
}

void clearPicture(Drawing& drawing) {
  drawing.window.picture().clear(drawing.colours().Label5);
  drawing.clears = ++drawing.window.pen().clears;
}

void drawTitle(Drawing& drawing) {
  const std::string title = "Semivariogram (" + std::string(drawing.directionName()) + ")";
  const Font font = drawing.font(FontRole::title);
  const double width = drawing.window.measureTitle(title, font);
  const double x = drawing.box().pictureW / 2 - width / 2;
  drawing.text(x, kTitleTop, title, font, drawing.colours().Label1);
}

void sizeWindow(Drawing& drawing) {
  PlotWindow& window = drawing.window;
  if (!window.visible()) window.setSize(kStandardWidth, kStandardHeight);
  window.setPictureSize(window.width() - kFrameWidth, window.height() - kFrameHeight);
}

}  // namespace zevfit
