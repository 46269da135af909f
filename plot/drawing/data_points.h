#pragma once

#include <cstdint>
#include <optional>

#include "model/data_point.h"
#include "session/session.h"

namespace zevfit {

/// The last class that can give a point or a fault: what no table holds is a class without pairs,
/// however many classes a file has claimed.
std::int64_t lastClass(const Session& session, Pair pair);

/// Nothing for a class without pairs, with a semivariance of 0 or above `ymax`, or with a distance
/// beyond `xmax`. Throws Fault for a distance that is a text, in any class.
std::optional<DataPoint> pointWithin(const Session& session, Pair pair, std::int64_t lag,
                                     double xmax, double ymax);
/// The same within the axes of the pair.
std::optional<DataPoint> shownPoint(const Session& session, Pair pair, std::int64_t lag);

}  // namespace zevfit
