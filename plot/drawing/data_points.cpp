#include "plot/drawing/data_points.h"

#include <algorithm>

namespace zevfit {

std::int64_t lastClass(const Session& session, std::int64_t variable, std::int64_t direction) {
  const std::size_t slots = std::max(session.gam.written(variable, direction).size(),
                                     session.hlag.written(variable, direction).size());
  return std::min(session.nclass, static_cast<std::int64_t>(slots) - 1);
}

std::optional<DataPoint> shownPoint(const Session& session, std::int64_t variable,
                                    std::int64_t direction, std::int64_t lag) {
  const DataPoint point{session.hlag(variable, direction, lag).number(),
                        session.gam(variable, direction, lag)};
  const bool inside = point.gamma <= session.ymax(variable, direction) &&
                      point.h <= session.xmax(variable, direction);
  const bool hasData = session.npairs(variable, direction, lag) != 0 && point.gamma != 0;
  return inside && hasData ? std::optional(point) : std::nullopt;
}

}  // namespace zevfit
