#pragma once

#include <QMdiArea>
#include <QPointer>
#include <functional>
#include <utility>
#include <vector>

#include "plot/window/direction_window.h"
#include "session/tables.h"
#include "windows/formod.h"

namespace zevfit {

/// The plot windows of the main window's area by pair, made at first use and kept.
class PlotWindowTable : public DirectionWindows {
 public:
  /// `endDelete`: what the windows run for the interface of that name.
  PlotWindowTable(QMdiArea& area, Fit& fit, const FaultReport& faults,
                  std::function<void()> endDelete)
      : area_(area), fit_(fit), faults_(faults), endDelete_(std::move(endDelete)) {}

  Formod& plotwin(Pair pair) override;
  bool isOpen(Pair pair) const override;

  /// Shows the window of a pair that was drawn, unless it is on show; the focus stays where it is.
  /// Those that have served a preview or the measuring of a title wait for a drawing of their own.
  void showDrawn(Pair drawn);

 private:
  QMdiArea& area_;
  Fit& fit_;
  const FaultReport& faults_;
  std::function<void()> endDelete_;
  PairTable<QPointer<Formod>, kVariableSlots, kVariableSlots> windows_{"plotwin"};
  std::vector<std::pair<Pair, QPointer<Formod>>> waiting_;  ///< loaded, not on show
};

}  // namespace zevfit
