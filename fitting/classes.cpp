#include "fitting/classes.h"

#include <algorithm>
#include <cmath>

namespace zevfit::fitting {

Classes classesOf(const FileTables& data, Pair pair) {
  Classes classes;
  const auto written = static_cast<std::int64_t>(data.npairs.written(pair).size()) - 1;
  for (std::int64_t lag = 1; lag <= std::min(written, data.nclass); ++lag) {
    const double pairs = data.npairs(pair, lag), semivariance = data.gam(pair, lag);
    if (!(pairs > 0)) continue;
    const double distance = data.hlag(pair, lag).number();
    const bool isFinite =
        std::isfinite(distance) && std::isfinite(semivariance) && std::isfinite(pairs);
    if (distance > 0 && isFinite) classes.push_back({distance, semivariance, pairs});
  }
  return classes;
}

std::vector<DirectionClasses> directionsOf(const FileTables& data, std::int64_t variable) {
  std::vector<DirectionClasses> directions;
  for (std::int64_t d = 1; d <= data.ndir; ++d)
    directions.push_back({directionNamed(data.dirname(d)), classesOf(data, {variable, d})});
  return directions;
}

}  // namespace zevfit::fitting
