#include "windows/arrangement.h"

#include <QMdiSubWindow>
#include <functional>

#include "windows/plot_area.h"
#include "windows/quiet_focus.h"

namespace zevfit {

namespace {

using Plots = QList<QMdiSubWindow*>;

Plots shownPlots(const QMdiArea& area, QMdiArea::WindowOrder order) {
  Plots shown;
  for (QMdiSubWindow* window : area.subWindowList(order))
    if (window->isVisible() && !window->isMinimized()) shown.append(window);
  return shown;
}

void arrange(PlotArea& area, QMdiArea::WindowOrder order,
             const std::function<void(const Plots&)>& layOut) {
  const QuietFocus focus(area);
  Plots shown = shownPlots(area, order);
  QMdiSubWindow* active = area.currentSubWindow();
  const bool isAside = active && active->isVisible() && active->isMinimized();
  area.withoutScrollBars([&] { layOut(shown); });
  if (isAside || shown.contains(active)) shown.append(active);
  for (QMdiSubWindow* window : shown) area.setActiveSubWindow(window);
  // It was brought back to be drawn.
  if (isAside) active->showMinimized();
}

}  // namespace

void cascadePlots(PlotArea& area) {
  // The active plot comes last, in front of the others.
  constexpr auto kOrder = QMdiArea::ActivationHistoryOrder;
  arrange(area, kOrder, [&area](const Plots& /*shown*/) {
    const auto before = area.activationOrder();
    area.setActivationOrder(kOrder);
    area.cascadeSubWindows();
    area.setActivationOrder(before);
  });
}

void tilePlots(PlotArea& area, Qt::Orientation along) {
  const bool sideBySide = along == Qt::Horizontal;
  arrange(area, QMdiArea::CreationOrder, [&](const Plots& shown) {
    const QSize room = area.viewport()->size();
    for (qsizetype i = 0; i < shown.size(); ++i) {
      const int count = static_cast<int>(shown.size());
      const int at = static_cast<int>(i);
      const QSize part = sideBySide ? QSize(room.width() / count, room.height())
                                    : QSize(room.width(), room.height() / count);
      shown[i]->showNormal();
      shown[i]->setGeometry(
          QRect(sideBySide ? QPoint(at * part.width(), 0) : QPoint(0, at * part.height()), part));
    }
  });
}

}  // namespace zevfit
