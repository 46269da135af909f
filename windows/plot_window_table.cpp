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
    waiting_.push_back(window);
  }
  return *window;
}

bool PlotWindowTable::isOpen(Pair pair) const {
  const QPointer<Formod>& window = windows_(pair);
  return window && window->loaded();
}

void PlotWindowTable::showLoaded() {
  const QuietFocus focus(area_);
  for (const QPointer<Formod>& window : std::exchange(waiting_, {})) {
    if (!window || !window->loaded() || window->isVisible()) continue;
    if (window->caption().empty()) {
      waiting_.push_back(window);
    } else {
      window->appear();
    }
  }
}

}  // namespace zevfit
