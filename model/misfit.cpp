#include "model/misfit.h"

#include <cmath>

#include "session/fault.h"

namespace zevfit {

std::optional<double> misfit(const NestedModel& model, std::span<const DataPoint> points,
                             double variance) {
  if (variance == 0) return std::nullopt;
  double squares = 0, weights = 0;
  for (const DataPoint& point : points) {
    const double weight = std::abs(point.pairs);
    const double difference = semivariance(model, point.h) - point.gamma;
    squares += weight * difference * difference;
    weights += weight;
  }
  if (weights == 0) return std::nullopt;
  return finite(std::sqrt(squares / weights) / std::abs(variance));
}

}  // namespace zevfit
