#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "zvm/experimental/strips.h"

namespace zevfit::zvm {

/// Goes through the points and, for each, through the runs of later points that may lie within the
/// reach: each pair within it is met exactly once, from the point that is sorted in front.
class Walk {
 public:
  Walk(const SortedPoints& points, double reach)
      : points_(points), reach_(reach * (1 + kSlack)), slack_(reach * kSlack) {}

  /// Calls visit(i, first, last) for the runs of the points from `begin` to before `end`.
  template <class Visit>
  void run(std::size_t begin, std::size_t end, Visit&& visit) {
    if (begin >= end) return;
    std::size_t strip = stripAt(begin);
    for (std::size_t i = begin; i < end; ++strip) {
      const std::size_t last = std::min(end, points_.strips[strip].last);
      meet(strip, i);
      for (; i < last; ++i) visitPoint(i, visit);
    }
  }

 private:
  /// Distances that are rounded up to the reach are looked at, too.
  static constexpr double kSlack = 1e-9;

  /// A strip and the run in it that the last point had.
  struct Met {
    const Strip* strip = nullptr;
    std::size_t first = 0, last = 0;
  };

  std::size_t stripAt(std::size_t point) const;
  /// Lists the strips that points of a strip can have partners in, its own first.
  void meet(std::size_t strip, std::size_t point);
  void meetRows(std::uint32_t layer, std::uint32_t firstRow, std::uint32_t lastRow, double x);

  static double gap(double value, double low, double high) {
    return std::max({0.0, low - value, value - high});
  }

  /// Moves the ends of a run to those of the next point, which is never far.
  void move(Met& met, double low, double high) const {
    const double* const x = points_.x.data();
    const auto [begin, end] = std::pair(met.strip->first, met.strip->last);
    while (met.first < end && x[met.first] < low) ++met.first;
    while (met.first > begin && x[met.first - 1] >= low) --met.first;
    while (met.last < end && x[met.last] <= high) ++met.last;
    while (met.last > begin && x[met.last - 1] > high) --met.last;
  }

  template <class Visit>
  void visitPoint(std::size_t i, Visit& visit) {
    const double x = points_.x[i], y = points_.y[i], z = points_.z.empty() ? 0 : points_.z[i];
    for (std::size_t m = 0; m < met_.size(); ++m) {
      Met& met = met_[m];
      const double dy = gap(y, met.strip->yLow, met.strip->yHigh);
      const double dz = gap(z, met.strip->zLow, met.strip->zHigh);
      const double left = reach_ * reach_ - dy * dy - dz * dz;
      if (left < 0) continue;
      const double width = std::sqrt(left) + slack_;
      move(met, x - width, x + width);
      const std::size_t first = m == 0 ? i + 1 : met.first;
      if (first < met.last) visit(i, first, met.last);
    }
  }

  const SortedPoints& points_;
  double reach_, slack_;
  std::vector<Met> met_;
};

}  // namespace zevfit::zvm
