#include "windows/plot_window_table.h"

#include <utility>

#include "plot/window/free_place.h"
#include "windows/quiet_focus.h"

namespace zevfit {

namespace {

/// A minimised window is nothing but its title.
WindowPlace placeOf(const QMdiSubWindow& window) {
  const QRect at = window.geometry();
  const int title = window.isMinimized() ? at.height() : window.widget()->y();
  return {at.left(), at.top(), at.width(), at.height(), title};
}

/// Moves a window to where it hides least of the others. A maximised one lies behind whatever comes
/// up.
void placeFreely(const QMdiArea& area, QMdiSubWindow& window) {
  std::vector<WindowPlace> others;
  for (const QMdiSubWindow* other : area.subWindowList())
    if (other != &window && other->isVisible() && !other->isMaximized())
      others.push_back(placeOf(*other));
  const QSize room = area.viewport()->size();
  const WindowPlace place = freePlace({room.width(), room.height()}, placeOf(window), others);
  window.move(place.left, place.top);
}

}  // namespace

Formod& PlotWindowTable::plotwin(Pair pair) {
  QPointer<Formod>& window = windows_(pair);
  if (!window) {
    window = new Formod(fit_, *this, faults_, endDelete_);
    area_.addSubWindow(window);
    window->hide();
  }
  if (!window->loaded()) {
    window->load();
    waiting_.emplace_back(pair, window);
  }
  return *window;
}

bool PlotWindowTable::isOpen(Pair pair) const {
  const QPointer<Formod>& window = windows_(pair);
  return window && window->appeared();
}

void PlotWindowTable::showDrawn(Pair drawn) {
  const QuietFocus focus(area_);
  for (const auto& [pair, window] : std::exchange(waiting_, {})) {
    if (!window || !window->loaded() || window->isVisible()) continue;
    // One without a caption has not got far enough to have a pair.
    if (pair == drawn && !window->caption().empty()) {
      window->appear();
      placeFreely(area_, *window);
    } else {
      waiting_.emplace_back(pair, window);
    }
  }
}

}  // namespace zevfit
