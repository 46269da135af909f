#include "windows/plot_window_table.h"

#include <utility>

#include "windows/quiet_focus.h"

namespace zevfit {

Formod& PlotWindowTable::plotwin(std::int64_t direction, std::int64_t variable) {
  QPointer<Formod>& window = windows_(direction, variable);
  if (!window) {
    window = new Formod(fit_, *this, endDelete_);
    area_.addSubWindow(window);
    window->hide();
  }
  if (!window->loaded()) {
    window->load();
    waiting_.push_back(window);
  }
  return *window;
}

bool PlotWindowTable::isOpen(std::int64_t direction, std::int64_t variable) const {
  const QPointer<Formod>& window = windows_(direction, variable);
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
