#include "plot/drawing/data_points.h"

#include <algorithm>

namespace zevfit {

std::int64_t lastClass(const Session& session, Pair pair) {
  const std::size_t slots =
      std::max(session.gam.written(pair).size(), session.hlag.written(pair).size());
  return std::min(session.nclass, static_cast<std::int64_t>(slots) - 1);
}

std::optional<DataPoint> pointWithin(const Session& session, Pair pair, std::int64_t lag,
                                     double xmax, double ymax) {
  const DataPoint point{session.hlag(pair, lag).number(), session.gam(pair, lag),
                        session.npairs(pair, lag)};
  const bool inside = point.gamma <= ymax && point.h <= xmax;
  const bool hasData = point.pairs != 0 && point.gamma != 0;
  return inside && hasData ? std::optional(point) : std::nullopt;
}

std::optional<DataPoint> shownPoint(const Session& session, Pair pair, std::int64_t lag) {
  return pointWithin(session, pair, lag, session.xmax(pair), session.ymax(pair));
}

}  // namespace zevfit
