#include "zvm/experimental/pair_block.h"

#include <algorithm>
#include <cmath>

namespace zevfit::zvm {

PairBlock::PairBlock(const SortedPoints& points, bool steps)
    : points_(points), steps_(steps), differences_(points.values.size()) {}

// Distances from the same operations in the same order wherever they are computed: a test of equal
// counts depends on it.
void PairBlock::takeSteps(std::size_t i, std::size_t first, std::size_t count) {
  const double* const xs = points_.x.data() + first;
  const double* const ys = points_.y.data() + first;
  const double x = points_.x[i], y = points_.y[i];
  double* const h = h_.data() + used_;
  if (points_.z.empty() && !steps_) {
    for (std::size_t k = 0; k < count; ++k) {
      const double dx = xs[k] - x, dy = ys[k] - y;
      h[k] = std::sqrt(dx * dx + dy * dy);
    }
    return;
  }
  double* const dxs = dx_.data() + used_;
  double* const dys = dy_.data() + used_;
  double* const dzs = dz_.data() + used_;
  if (points_.z.empty()) {
    for (std::size_t k = 0; k < count; ++k) {
      const double dx = xs[k] - x, dy = ys[k] - y;
      dxs[k] = dx;
      dys[k] = dy;
      h[k] = std::sqrt(dx * dx + dy * dy);
    }
    return;
  }
  const double* const zs = points_.z.data() + first;
  const double z = points_.z[i];
  for (std::size_t k = 0; k < count; ++k) {
    const double dx = xs[k] - x, dy = ys[k] - y, dz = zs[k] - z;
    dxs[k] = dx;
    dys[k] = dy;
    dzs[k] = dz;
    h[k] = std::sqrt(dx * dx + dy * dy + dz * dz);
  }
}

std::size_t PairBlock::take(std::size_t i, std::size_t first, std::size_t last) {
  const std::size_t count = std::min(last - first, kSize - used_);
  takeSteps(i, first, count);
  for (std::size_t v = 0; v < differences_.size(); ++v) {
    const double* const values = points_.values[v].data() + first;
    const double value = points_.values[v][i];
    double* const differences = differences_[v].data() + used_;
    for (std::size_t k = 0; k < count; ++k) differences[k] = values[k] - value;
  }
  if (!points_.rows.empty())
    for (std::size_t k = 0; k < count; ++k)
      backward_[used_ + k] = points_.rows[first + k] < points_.rows[i];
  used_ += count;
  return first + count;
}

// The quotient, a little raised, is never below the number of widths that are passed and at most
// one above it; the comparison with the edge, the same double as in LagRule, decides.
void PairBlock::classifyUniform(const LagRule& rule) {
  constexpr double kRaised = 1e-6;
  const double edge = rule.edge(), width = rule.width(), perWidth = 1 / width;
  const double most = rule.count() + 1.0;
  const std::int32_t beyond = rule.count() + 1;
  for (std::size_t k = 0; k < used_; ++k) {
    const double h = h_[k];
    const double quotient = (h - edge) * perWidth + kRaised;
    const auto passed = static_cast<std::int32_t>(quotient < most ? quotient : most);
    const std::int32_t lag = passed + (h > passed * width + edge ? 1 : 0);
    firstClass_[k] = lag < beyond ? lag : beyond;
  }
}

void PairBlock::classify(const LagRule& rule) {
  for (std::size_t k = 0; k < used_; ++k) {
    const ClassRange range = rule.classesOf(h_[k]);
    firstClass_[k] = range.first;
    lastClass_[k] = range.last;
  }
}

std::size_t PairBlock::mostClasses() const {
  std::int32_t most = 1;
  for (std::size_t k = 0; k < used_; ++k) most = std::max(most, lastClass_[k] - firstClass_[k] + 1);
  return static_cast<std::size_t>(most);
}

void PairBlock::clearDirections() {
  for (std::size_t k = 0; k < used_; ++k) directions_[k] = 0;
}

void PairBlock::addSector(const SectorTest& given, std::size_t direction) {
  const SectorTest test = given;
  const std::uint32_t bit = std::uint32_t{1} << direction;
  for (std::size_t k = 0; k < used_; ++k) directions_[k] |= test.holds(dx_[k], dy_[k]) ? bit : 0;
}

void PairBlock::addCone(const ConeTest& given, std::size_t direction) {
  const ConeTest test = given;
  const std::uint32_t bit = std::uint32_t{1} << direction;
  for (std::size_t k = 0; k < used_; ++k)
    directions_[k] |= test.holds(dx_[k], dy_[k], dz_[k]) ? bit : 0;
}

void PairBlock::settle(std::int32_t classes) {
  const std::int32_t beyond = classes + 1;
  for (std::size_t k = 0; k < used_; ++k) {
    const std::int32_t lag = firstClass_[k];
    const bool isClass = (lag > kZeroClass) & (lag < beyond);
    const std::uint32_t in = isClass ? directions_[k] : 1;
    firstClass_[k] = in == 0 ? beyond : lag;
    lastClass_[k] = in == 0 ? beyond : lastClass_[k];
    directions_[k] = in == 0 ? 1 : in;
  }
}

}  // namespace zevfit::zvm
