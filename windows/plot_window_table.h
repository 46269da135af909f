#pragma once

#include <QMdiArea>
#include <QPointer>
#include <functional>
#include <vector>

#include "plot/direction_window.h"
#include "session/tables.h"
#include "windows/formod.h"

namespace zevfit {

/// The plot windows of the main window's area by (direction, variable), made at first use and kept.
class PlotWindowTable : public DirectionWindows {
 public:
  PlotWindowTable(QMdiArea& area, Fit& fit) : area_(area), fit_(fit) {}

  Formod& plotwin(std::int64_t direction, std::int64_t variable) override;
  bool isOpen(std::int64_t direction, std::int64_t variable) const override;

  /// Shows windows that were loaded and have not appeared; the focus stays where it is.
  void showLoaded();

 private:
  QMdiArea& area_;
  Fit& fit_;
  PairTable<QPointer<Formod>, kVariableSlots, kVariableSlots> windows_;
  std::vector<QPointer<Formod>> waiting_;
};

}  // namespace zevfit
