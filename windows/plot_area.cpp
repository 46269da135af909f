#include "windows/plot_area.h"

#include <QEvent>
#include <QMdiSubWindow>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>

namespace zevfit {

namespace {

/// What may come before another plot is maximised, or none is.
bool tellsOfState(QEvent::Type event) {
  return event == QEvent::WindowStateChange || event == QEvent::ShowToParent ||
         event == QEvent::HideToParent;
}

bool tellsOfPlace(QEvent::Type event) { return event == QEvent::Move || event == QEvent::Resize; }

}  // namespace

PlotArea::PlotArea() {
  setOption(DontMaximizeSubWindowOnActivation);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  connect(this, &QMdiArea::subWindowActivated, this, &PlotArea::bringInside);
}

void PlotArea::withoutScrollBars(const std::function<void()>& layOut) {
  {
    const QScopedValueRollback laying(layingOut_, true);
    chooseScrollBars();
    layOut();
  }
  chooseScrollBars();
}

bool PlotArea::eventFilter(QObject* watched, QEvent* event) {
  // A plot on its way from state to state would be held by a new size of the area.
  if (tellsOfState(event->type()))
    QMetaObject::invokeMethod(this, &PlotArea::chooseScrollBars, Qt::QueuedConnection);
  if (auto* plot = qobject_cast<QMdiSubWindow*>(watched); plot && tellsOfPlace(event->type()))
    keepMinimised(*plot);
  return QMdiArea::eventFilter(watched, event);
}

void PlotArea::resizeEvent(QResizeEvent* event) {
  QMdiArea::resizeEvent(event);
  bringInside(currentSubWindow());
}

// The toolkit lays minimised plots in rows of the first one's height. A higher one would hang over
// the edge of the area, be lifted by the scroll bars that come for it, and hang over it again
// without them, for ever.
void PlotArea::keepMinimised(QMdiSubWindow& plot) {
  if (plot.isMinimized()) plot.resize(plot.minimumSizeHint());
}

bool PlotArea::isFilled() const {
  const auto plots = subWindowList();
  return std::any_of(plots.begin(), plots.end(), [](const QMdiSubWindow* plot) {
    return plot->isMaximized() && !plot->isHidden();
  });
}

// The toolkit has none where the active plot is maximised. One behind it would lose them, and take
// another size, under the mouse whose press activates it.
void PlotArea::chooseScrollBars() {
  const bool none = layingOut_ || isFilled();
  const auto policy = none ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
  if (policy == horizontalScrollBarPolicy()) return;
  for (QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()})
    if (none) bar->setValue(0);
  setHorizontalScrollBarPolicy(policy);
  setVerticalScrollBarPolicy(policy);
}

void PlotArea::bringInside(QMdiSubWindow* plot) {
  const QRect room = viewport()->rect();
  if (!plot || !isFilled() || room.intersects(plot->geometry())) return;
  const QSize left = (room.size() - plot->QWidget::size()).expandedTo({0, 0});
  plot->move(std::clamp(plot->x(), 0, left.width()), std::clamp(plot->y(), 0, left.height()));
}

}  // namespace zevfit
