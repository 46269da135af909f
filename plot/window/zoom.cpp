#include "plot/window/zoom.h"

#include "plot/window/overlays.h"
#include "session/fault.h"

namespace zevfit {
namespace {

constexpr double kZoomStep = 1.03;
/// Widths beyond which a window is not zoomed any more: of the screen's, and in twips. The last
/// step may pass them.
constexpr double kWidestShare = 0.9, kNarrowest = 4000;

void hideOverlays(DirectionWindow& window) {
  window.hideGuides();
  window.showTag(false);
  hideHandles(window);
}

struct Zoom {
  const char* refusal;
  bool (*isRefused)(double width, double screenWidth);
  double (*size)(double size);
};
constexpr Zoom kLarger{"Cannot enlarge variogram plot!",
                       [](double width, double screen) { return width > kWidestShare * screen; },
                       [](double size) { return size * kZoomStep; }};
constexpr Zoom kSmaller{"Cannot reduce variogram plot!",
                        [](double width, double) { return width < kNarrowest; },
                        [](double size) { return size / kZoomStep; }};

/// False where the limit forbids it.
bool zoomCurrent(Fit& fit, DirectionWindows& windows, double screenWidth, const Zoom& zoom) {
  const Session& session = fit.session;
  if (!windows.isOpen(session.curdir, session.curvar)) return true;
  DirectionWindow& window = windows.plotwin(session.curdir, session.curvar);
  if (zoom.isRefused(window.width(), screenWidth)) return false;
  hideOverlays(window);
  window.setSize(zoom.size(window.width()), zoom.size(window.height()));
  fit.plotter.plotvariogram();
  return true;
}

// A fault is answered as a refusal is.
void runZoom(Fit& fit, DirectionWindows& windows, double screenWidth, const Zoom& zoom) {
  if (!requireFile(fit)) return;
  if (fit.session.curvar < 1 || fit.session.curdir < 1) return;
  try {
    if (zoomCurrent(fit, windows, screenWidth, zoom)) return;
  } catch (const std::exception&) {
    // Told below.
  }
  fit.dialogs.plain(zoom.refusal);
}

}  // namespace

void kmais(Fit& fit, DirectionWindows& windows, double screenWidth) {
  runZoom(fit, windows, screenWidth, kLarger);
}

void kmenos(Fit& fit, DirectionWindows& windows) { runZoom(fit, windows, 0, kSmaller); }

}  // namespace zevfit
