#include "tests/zvm/compute/reference.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zevfit::zvm::test {

namespace {

constexpr double kDegree = 3.14159265358979323846 / 180;

struct Step {
  double x = 0, y = 0, z = 0;
  double length() const { return std::sqrt(x * x + y * y + z * z); }
};

double dot(const Step& a, const Step& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

Step cross(const Step& a, const Step& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double edgeOf(const PointSet& points, const Plan& plan) {
  double largest = 0;
  for (const auto* column : {&points.x, &points.y, &points.z})
    for (const double value : *column) largest = std::max(largest, std::fabs(value));
  const double unit = std::nextafter(largest, std::numeric_limits<double>::infinity()) - largest;
  return std::max(1e-9 * plan.lags.width, 4 * unit);
}

bool isInClass(const LagClasses& lags, double edge, std::int64_t k, double h) {
  const double number = static_cast<double>(k);
  if (!lags.tolerance)
    return (number - 1) * lags.width + edge < h && h <= number * lags.width + edge;
  const double centre = number * lags.width;
  return h >= centre - *lags.tolerance - edge && h < centre + *lags.tolerance - edge;
}

bool isInSector(const Direction& direction, const Step& step) {
  if (direction.tolerance >= 90) return true;
  const double angle = std::atan2(step.x, step.y) / kDegree;
  const double low = direction.azimuth - direction.tolerance - 1e-9;
  const double high = direction.azimuth + direction.tolerance - 1e-9;
  for (int turn = -5; turn <= 5; ++turn)
    if (low < angle + 180 * turn && angle + 180 * turn <= high) return true;
  return false;
}

Step axisOf(const Direction& direction) {
  const double azimuth = direction.azimuth * kDegree, dip = direction.dip * kDegree;
  return {std::sin(azimuth) * std::cos(dip), std::cos(azimuth) * std::cos(dip), -std::sin(dip)};
}

bool isInCone(const Direction& direction, const Step& step) {
  const Step axis = axisOf(direction);
  const double across = cross(axis, step).length();
  return std::atan2(across, std::fabs(dot(axis, step))) / kDegree <= direction.tolerance + 1e-9;
}

bool isInBands(const Direction& direction, const Step& step) {
  const double azimuth = direction.azimuth * kDegree;
  const Step across{std::cos(azimuth), -std::sin(azimuth), 0};
  if (direction.band && std::fabs(dot(across, step)) > *direction.band) return false;
  return !direction.vband ||
         std::fabs(dot(cross(axisOf(direction), across), step)) <= *direction.vband;
}

bool isIn(const Direction& direction, const Step& step, bool inSpace) {
  const bool angle = inSpace ? isInCone(direction, step) : isInSector(direction, step);
  return angle && isInBands(direction, step);
}

void add(Reference::Class& lag, double h, double product) {
  ++lag.pairs;
  lag.distance += h;
  lag.semivariance += product;
  lag.size += std::fabs(product);
}

}  // namespace

Reference referenceOf(const PointSet& points, const Plan& plan) {
  const double edge = edgeOf(points, plan);
  Reference result;
  result.zeroPairs.assign(plan.pairings.size(), 0);
  const std::vector<Reference::Class> none(static_cast<std::size_t>(plan.lags.count));
  result.classes.assign(plan.pairings.size(), {plan.directions.size(), none});
  for (std::size_t i = 0; i < points.size(); ++i)
    for (std::size_t j = i + 1; j < points.size(); ++j) {
      const Step step{points.x[j] - points.x[i], points.y[j] - points.y[i],
                      points.inSpace ? points.z[j] - points.z[i] : 0};
      const double h = step.length();
      for (std::size_t p = 0; p < plan.pairings.size(); ++p) {
        const auto& first = points.values[plan.pairings[p].first];
        const auto& second = points.values[plan.pairings[p].second];
        const double product = (first[j] - first[i]) * (second[j] - second[i]);
        if (std::isnan(product)) continue;
        const bool isZero = h <= edge;
        result.zeroPairs[p] += isZero ? 1 : 0;
        if (isZero && plan.zero == ZeroDistances::skip) continue;
        for (std::size_t d = 0; d < plan.directions.size(); ++d) {
          if (!isZero && !isIn(plan.directions[d], step, points.inSpace)) continue;
          for (std::int64_t k = 1; k <= plan.lags.count; ++k)
            if (isZero ? k == 1 : isInClass(plan.lags, edge, k, h))
              add(result.classes[p][d][static_cast<std::size_t>(k - 1)], h, product);
        }
      }
    }
  for (auto& pairing : result.classes)
    for (auto& direction : pairing)
      for (auto& lag : direction) {
        if (lag.pairs == 0) continue;
        lag.distance /= static_cast<double>(lag.pairs);
        lag.semivariance /= 2 * static_cast<double>(lag.pairs);
        lag.size /= 2 * static_cast<double>(lag.pairs);
      }
  return result;
}

}  // namespace zevfit::zvm::test
