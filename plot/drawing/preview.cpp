#include "plot/drawing/preview.h"

#include "model/refresh.h"
#include "plot/drawing/data_steps.h"
#include "plot/drawing/frame.h"
#include "plot/drawing/window_steps.h"
#include "session/fault.h"
#include "session/policy.h"

namespace zevfit {
namespace {

/// The preview's picture, with the title measured in the plot's own window.
class Target : public PlotPicture {
 public:
  Target(PreviewPicture& picture, PlotWindow& window) : picture_(picture), window_(window) {}

  double pictureWidth() const override { return picture_.pictureWidth(); }
  double pictureHeight() const override { return picture_.pictureHeight(); }
  Surface& picture() override { return picture_.picture(); }
  PenState& pen() override { return picture_.pen(); }
  double measureTitle(std::string_view text, const Font& font) override {
    return window_.measureTitle(text, font);
  }

 private:
  PreviewPicture& picture_;
  PlotWindow& window_;
};

/// Unlike a plot it does not restore its window, select a structure, mirror the boxes or let the
/// sliders catch up, and it does not bring the window to the front.
void drawPreview(Fit& fit, PlotWindows& windows, PreviewPicture& picture) {
  Session& session = fit.session;
  if (session.curvar < 1 || session.curdir < 1) throw Fault("No plot is selected");
  PlotWindow& window = windows.plotwin(session.current());
  session.setPlotted(session.current());
  Target target(picture, window);
  PlotForm form = kPreviewPlot;
  form.bold = picture.bold();
  Drawing drawing{session, target, form};
  colourOverlays(session, window);
  writeCaption(session, window);
  clearPicture(drawing);
  drawTitle(drawing);
  picture.setPictureSize(kPreviewWidth, kPreviewHeight);
  drawFrame(drawing);
  startDistanceAxis(drawing);
  refreshModel(fit);
  showVariance(fit);
  drawContent(drawing);
}

}  // namespace

void preview(Fit& fit, PlotWindows& windows, PreviewPicture& picture, bool& previewrunning) {
  previewrunning = true;
  if (!requireFile(fit)) return;
  endSilently([&] {
    drawPreview(fit, windows, picture);
    previewrunning = false;
  });
}

}  // namespace zevfit
