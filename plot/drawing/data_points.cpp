#include "plot/drawing/data_points.h"

#include <algorithm>

namespace zevfit {

std::int64_t lastClass(const Session& session, Pair pair) {
  const std::size_t slots =
      std::max(session.gam.written(pair).size(), session.hlag.written(pair).size());
  return std::min(session.nclass, static_cast<std::int64_t>(slots) - 1);
}

std::optional<DataPoint> shownPoint(const Session& session, Pair pair, std::int64_t lag) {
  const DataPoint point{session.hlag(pair, lag).number(), session.gam(pair, lag)};
  const bool inside = point.gamma <= session.ymax(pair) && point.h <= session.xmax(pair);
  const bool hasData = session.npairs(pair, lag) != 0 && point.gamma != 0;
  return inside && hasData ? std::optional(point) : std::nullopt;
}

}  // namespace zevfit
