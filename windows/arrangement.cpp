#include "windows/arrangement.h"

#include <QMdiSubWindow>
#include <QPointer>
#include <functional>
#include <utility>
#include <vector>

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

/// Qt lays out the titles of all windows each time that one is activated: with many plots that
/// takes longer than drawing them. Meanwhile they have none.
class TitlesAside {
 public:
  explicit TitlesAside(const Plots& plots) {
    for (QMdiSubWindow* window : plots) {
      titles_.emplace_back(window, window->windowTitle());
      window->setWindowTitle({});
    }
  }
  ~TitlesAside() {
    for (const auto& [window, title] : titles_)
      if (window && window->windowTitle().isEmpty()) window->setWindowTitle(title);
  }
  TitlesAside(const TitlesAside&) = delete;
  TitlesAside& operator=(const TitlesAside&) = delete;

 private:
  std::vector<std::pair<QPointer<QMdiSubWindow>, QString>> titles_;
};

void arrange(PlotArea& area, QMdiArea::WindowOrder order,
             const std::function<void(const Plots&)>& layOut) {
  const QuietFocus focus(area);
  const TitlesAside titles(area.subWindowList());
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
