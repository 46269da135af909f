#pragma once

#include <QMdiArea>
#include <QPointer>
#include <functional>
#include <vector>

#include "plot/plot_window.h"
#include "session/tables.h"
#include "windows/formod.h"

namespace zevfit {

/// The plot windows of the main window's area by (direction, variable), made at first use and kept.
class PlotWindowTable : public PlotWindows {
 public:
  explicit PlotWindowTable(QMdiArea& area) : area_(area) {}

  Formod& plotwin(std::int64_t direction, std::int64_t variable) override;

  /// Shows windows that were loaded and have not appeared; the focus stays where it is.
  void showLoaded();

 private:
  QMdiArea& area_;
  PairTable<QPointer<Formod>, kVariableSlots, kVariableSlots> windows_;
  std::vector<QPointer<Formod>> waiting_;
};

}  // namespace zevfit
