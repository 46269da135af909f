#include "windows/plot_window_table.h"

#include <utility>

#include "windows/quiet_focus.h"

namespace zevfit {

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
    } else {
      waiting_.emplace_back(pair, window);
    }
  }
}

}  // namespace zevfit
