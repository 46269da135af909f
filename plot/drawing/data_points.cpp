#include "plot/drawing/data_points.h"

#include <algorithm>

namespace zevfit {

DataPoints::DataPoints(const Session& session, Pair pair, double xmax, double ymax)
    : classes_(session.nclass),
      distances_(session.hlag.written(pair)),
      semivariances_(session.gam.written(pair)),
      pairs_(session.npairs.written(pair)),
      xmax_(xmax),
      ymax_(ymax) {}

DataPoints::DataPoints(const Session& session, Pair pair)
    : DataPoints(session, pair, session.xmax(pair), session.ymax(pair)) {}

std::int64_t DataPoints::last() const {
  const std::size_t slots = std::max(semivariances_.size(), distances_.size());
  return std::min(classes_, static_cast<std::int64_t>(slots) - 1);
}

}  // namespace zevfit
