#include "plot/window/zoom.h"

#include "model/fit.h"
#include "plot/window/overlays.h"
#include "session/policy.h"

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
bool zoomCurrent(const Session& session, Plotter& plotter, DirectionWindows& windows,
                 double screenWidth, const Zoom& zoom) {
  if (!windows.isOpen(session.current())) return true;
  DirectionWindow& window = windows.plotwin(session.current());
  if (zoom.isRefused(window.width(), screenWidth)) return false;
  hideOverlays(window);
  window.setSize(zoom.size(window.width()), zoom.size(window.height()));
  plotter.plotvariogram();
  return true;
}

// A fault is answered as a refusal is.
void runZoom(const Session& session, Plotter& plotter, Messages& messages,
             DirectionWindows& windows, double screenWidth, const Zoom& zoom) {
  if (!requireFile(session, messages)) return;
  if (session.curvar < 1 || session.curdir < 1) return;
  const bool zoomed =
      attempt([&] { return zoomCurrent(session, plotter, windows, screenWidth, zoom); },
              [] { return false; });
  if (!zoomed) messages.plain(zoom.refusal);
}

}  // namespace

void kmais(const Session& session, Plotter& plotter, Messages& messages, DirectionWindows& windows,
           double screenWidth) {
  runZoom(session, plotter, messages, windows, screenWidth, kLarger);
}

void kmenos(const Session& session, Plotter& plotter, Messages& messages,
            DirectionWindows& windows) {
  runZoom(session, plotter, messages, windows, 0, kSmaller);
}

}  // namespace zevfit
