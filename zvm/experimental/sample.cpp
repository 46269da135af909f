#include "zvm/experimental/sample.h"

#include <cmath>
#include <limits>

namespace zevfit::zvm {

namespace {

/// Keeps the points for which `keeps` holds, which is asked once for each, in order.
template <class Keeps>
void filter(PointSet& points, Keeps&& keeps) {
  const std::size_t size = points.size();
  std::size_t kept = 0;
  for (std::size_t i = 0; i < size; ++i) {
    if (!keeps(i)) continue;
    points.x[kept] = points.x[i];
    points.y[kept] = points.y[i];
    if (points.inSpace) points.z[kept] = points.z[i];
    for (auto& column : points.values) column[kept] = column[i];
    ++kept;
  }
  const bool inSpace = points.inSpace;
  points.x.resize(kept);
  points.y.resize(kept);
  if (inSpace) points.z.resize(kept);
  for (auto& column : points.values) column.resize(kept);
}

}  // namespace

std::uint64_t SplitMix::next() {
  state_ += 0x9E3779B97F4A7C15U;
  std::uint64_t mixed = state_;
  mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
  mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
  return mixed ^ (mixed >> 31U);
}

std::uint64_t SplitMix::below(std::uint64_t bound) {
  // Of the numbers that there are, the last ones that make no whole round are drawn again.
  const std::uint64_t rest = (std::numeric_limits<std::uint64_t>::max() % bound + 1) % bound;
  for (;;) {
    const std::uint64_t drawn = next();
    if (drawn <= std::numeric_limits<std::uint64_t>::max() - rest) return drawn % bound;
  }
}

void drawSample(PointSet& points, std::uint64_t count, std::uint64_t seed) {
  if (count >= points.size()) return;
  SplitMix random(seed);
  std::uint64_t left = points.size(), wanted = count;
  filter(points, [&](std::size_t) {
    const bool isDrawn = random.below(left--) < wanted;
    wanted -= isDrawn ? 1 : 0;
    return isDrawn;
  });
}

std::uint64_t dropUnknown(PointSet& points) {
  const std::size_t before = points.size();
  filter(points, [&](std::size_t i) {
    for (const auto& column : points.values)
      if (!std::isnan(column[i])) return true;
    return false;
  });
  return before - points.size();
}

}  // namespace zevfit::zvm
