#include "plot/window/pair_count.h"

#include <algorithm>

#include "plot/drawing/window_key.h"
#include "session/fault.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

/// The last class to look at. Behind those written all are alike, so that the first of them counts
/// for all, however many classes a file has claimed.
std::int64_t lastDistinctClass(const Session& session, Pair pair) {
  const std::size_t slots = session.hlag.written(pair).size();
  return std::min(session.nclass, std::max<std::int64_t>(static_cast<std::int64_t>(slots), 1));
}

bool isOnDataPoint(const Session& session, DirectionWindow& window) {
  const DragState& mouse = window.dragState();
  const PlotBox box{window.pictureWidth(), window.pictureHeight()};
  return isNearBox(box, mouse.cursorx, double{mouse.cursory}) &&
         window.colourAt(mouse.cursorx, double{mouse.cursory}) == session.style.cores.data();
}

void tagDataPoint(const Session& session, DirectionWindow& window) {
  const DragState& mouse = window.dragState();
  window.placeTag(mouse.cursorx, double{mouse.cursory});
  const PlotBox box{window.pictureWidth(), window.pictureHeight()};
  const Pair pair = session.current();
  const std::int64_t lag = classAt(session, box, mouse.cursorx, pair);
  window.setTagCaption(pairCountText(session, pair, lag));
  window.showTag(true);
}

}  // namespace

bool isNearBox(const PlotBox& box, double x, double y) {
  return x >= PlotBox::xleft - kClickMargin && x <= box.xright() + kClickMargin &&
         y >= PlotBox::ytop - kClickMargin && y <= box.ybottom() + kClickMargin;
}

std::int64_t classAt(const Session& session, const PlotBox& box, double x, Pair pair) {
  // Beside the end of the axis a distance may lie beyond all numbers.
  const auto distanceAt = [&](double at) {
    return divide(at - PlotBox::xleft, box.xright() - PlotBox::xleft) * session.xmax(pair);
  };
  const double low = distanceAt(x - kClickMargin);
  const double high = distanceAt(x + kClickMargin);
  const std::int64_t last = lastDistinctClass(session, pair);
  for (std::int64_t lag = 1; lag <= last; ++lag) {
    const Cell& h = session.hlag(pair, lag);
    if (!h.isText() && h.number() < high && h.number() > low) return lag;
  }
  return session.nclass + 1;
}

std::string pairCountText(const Session& session, Pair pair, std::int64_t lag) {
  return generalText(session.npairs(pair, lag));
}

void Picture4_Click(Fit& fit, DirectionWindow& window) {
  Session& session = fit.session;
  takeKey(session, window);
  window.endDelete();
  if (session.curvar <= 0 || session.curdir <= 0) return;
  if (isOnDataPoint(session, window)) tagDataPoint(session, window);
  plotOrWarn(fit);
}

}  // namespace zevfit
