#pragma once

#include <cmath>
#include <cstddef>
#include <ctime>

#include "zvm/experimental/plan.h"
#include "zvm/experimental/sample.h"
#include "zvm/points/point_set.h"

namespace zevfit::zvm::bench {

constexpr std::int64_t kClasses = 15;

/// Points and values spread evenly from 0 to 1, the same in every run.
inline PointSet randomPoints(std::size_t count) {
  PointSet points;
  SplitMix random(1);
  const auto next = [&random] { return static_cast<double>(random.next() >> 11U) * 0x1p-53; };
  points.values.resize(1);
  for (auto* column : {&points.x, &points.y, &points.values[0]}) column->reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    points.x.push_back(next());
    points.y.push_back(next());
    points.values[0].push_back(next());
  }
  return points;
}

/// The longest distance with which a point has as many partners as with 0.1 among 50,000.
inline double cutoffFor(std::size_t count) {
  return 0.1 * std::sqrt(50'000.0 / static_cast<double>(count));
}

/// Classes up to `cutoff`, in none or four directions.
inline Plan planOf(double cutoff, bool directed) {
  Plan plan;
  plan.lags = {cutoff / kClasses, kClasses, {}};
  plan.pairings = {{0, 0, "v"}};
  for (const char* name : {"0;0", "45;0", "90;0", "135;0"})
    if (directed || plan.directions.empty()) plan.directions.push_back(directionOf(name).value());
  if (!directed) plan.directions[0].tolerance = 90;
  return plan;
}

inline double processorSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

/// The processor seconds of some work.
template <class Work>
double secondsOf(Work&& work) {
  const double start = processorSeconds();
  work();
  return processorSeconds() - start;
}

}  // namespace zevfit::zvm::bench
