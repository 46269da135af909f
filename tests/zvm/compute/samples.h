#pragma once

#include <cmath>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "zvm/experimental/job.h"
#include "zvm/experimental/sample.h"
#include "zvm/points/field.h"
#include "zvm/points/point_set.h"

namespace zevfit::zvm::test {

/// Numbers from 0 to below 1, the same in every run.
class Random {
 public:
  explicit Random(std::uint64_t seed) : generator_(seed) {}
  double next() { return static_cast<double>(generator_.next() >> 11U) * 0x1p-53; }
  double between(double low, double high) { return low + (high - low) * next(); }

 private:
  SplitMix generator_;
};

/// Appends a point whose values vary with its place and at random.
inline void addPoint(PointSet& points, Random& random, double x, double y, double z, bool inSpace) {
  points.x.push_back(x);
  points.y.push_back(y);
  if (inSpace) points.z.push_back(z);
  for (std::size_t v = 0; v < points.values.size(); ++v)
    points.values[v].push_back(std::sin(x + static_cast<double>(v)) + std::cos(2 * y) + z +
                               random.next());
}

/// Where a point lies; told the number of the point.
using Place = std::function<void(Random&, std::size_t, double&, double&, double&)>;

inline PointSet scattered(std::size_t count, std::size_t variables, bool inSpace,
                          const Place& place, std::uint64_t seed = 1) {
  PointSet points;
  points.values.resize(variables);
  points.inSpace = inSpace;
  Random random(seed);
  for (std::size_t i = 0; i < count; ++i) {
    double x = 0, y = 0, z = 0;
    place(random, i, x, y, z);
    addPoint(points, random, x, y, inSpace ? z : 0, inSpace);
  }
  points.read = count;
  return points;
}

inline void anywhere(Random& random, std::size_t, double& x, double& y, double& z) {
  x = random.next();
  y = random.next();
  z = random.next();
}

inline Direction toward(std::string_view name, double tolerance) {
  Direction direction = directionOf(name).value();
  direction.tolerance = tolerance;
  return direction;
}

/// One variable in the given directions; without one, omnidirectional.
inline Plan planOf(double width, std::int64_t count, std::vector<Direction> directions = {}) {
  Plan plan;
  plan.title = "title";
  plan.lags = {width, count, {}};
  plan.directions = std::move(directions);
  if (plan.directions.empty()) plan.directions.push_back(toward("0;0", 90));
  plan.pairings = {{0, 0, "A"}};
  return plan;
}

inline Experimental computed(const PointSet& points, const Plan& plan, unsigned threads = 1) {
  const Job job = prepare(points, plan);
  RunOptions options;
  options.threads = threads;
  return experimentalOf(job.frame, runWhole(job, options));
}

/// The numbers of pairs of a variable in a direction, class by class.
inline std::vector<std::uint64_t> pairsOf(const Experimental& experimental,
                                          std::size_t variable = 0, std::size_t direction = 0) {
  std::vector<std::uint64_t> pairs;
  for (const LagClass& lag : experimental.classes[variable][direction]) pairs.push_back(lag.pairs);
  return pairs;
}

/// The variogram file of a result.
inline std::string fileOf(const Experimental& experimental) {
  MemorySink sink;
  composeExperimental(experimental, sink);
  return sink.bytes;
}

}  // namespace zevfit::zvm::test
