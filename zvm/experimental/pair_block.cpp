#include "zvm/experimental/pair_block.h"

#include <algorithm>
#include <cmath>

namespace zevfit::zvm {

namespace {

/// The class of a distance where classes border on each other; of one beyond them one of the two
/// numbers behind theirs. The nearest whole number of widths
/// is that of the last edge that is passed, or of the next one; the comparison with its edge, the
/// same double as in LagRule, decides.
struct UniformClasses {
  double edge, width, perWidth, beyond;

  explicit UniformClasses(const LagRule& rule)
      : edge(rule.edge()),
        width(rule.width()),
        perWidth(1 / rule.width()),
        beyond(rule.count() + 1.0) {}

  double classOf(double h) const {
    constexpr double kRounding = 0x1.8p52;  // adding and subtracting it rounds to a whole number
    const double quotient = (h - edge) * perWidth;
    const double within = quotient < beyond ? quotient : beyond;
    const double nearest = (within + kRounding) - kRounding;
    return nearest + (h > nearest * width + edge ? 1.0 : 0.0);
  }
};

}  // namespace

PairBlock::PairBlock(const SortedPoints& points, const LagRule& rule, bool steps)
    : points_(points), rule_(rule), steps_(steps), differences_(points.values.size()) {}

// Distances from the same operations in the same order wherever they are computed: a test of equal
// counts depends on it. The class is found in the same loop, in the time that the square root of
// the next pair takes.
template <bool Space, bool Steps>
void PairBlock::takeSteps(std::size_t i, std::size_t first, std::size_t count) {
  const double* const xs = points_.x.data() + first;
  const double* const ys = points_.y.data() + first;
  const double* const zs = Space ? points_.z.data() + first : nullptr;
  const double x = points_.x[i], y = points_.y[i], z = Space ? points_.z[i] : 0;
  const std::size_t used = used_;
  const UniformClasses classes(rule_);
  for (std::size_t k = 0; k < count; ++k) {
    const double dx = xs[k] - x, dy = ys[k] - y;
    double square = dx * dx + dy * dy;
    if constexpr (Space) {
      const double dz = zs[k] - z;
      square += dz * dz;
      if constexpr (Steps) dz_[used + k] = dz;
    }
    if constexpr (Steps) {
      dx_[used + k] = dx;
      dy_[used + k] = dy;
    }
    const double h = std::sqrt(square);
    h_[used + k] = h;
    firstClass_[used + k] = classes.classOf(h);
  }
}

std::size_t PairBlock::take(std::size_t i, std::size_t first, std::size_t last) {
  const std::size_t count = std::min(last - first, kSize - used_);
  if (points_.z.empty())
    steps_ ? takeSteps<false, true>(i, first, count) : takeSteps<false, false>(i, first, count);
  else
    steps_ ? takeSteps<true, true>(i, first, count) : takeSteps<true, false>(i, first, count);
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

void PairBlock::classify() {
  for (std::size_t k = 0; k < used_; ++k) {
    const ClassRange range = rule_.classesOf(h_[k]);
    firstClass_[k] = range.first;
    lastClass_[k] = range.last;
  }
}

std::size_t PairBlock::mostClasses() const {
  double most = 1;
  for (std::size_t k = 0; k < used_; ++k) most = std::max(most, lastClass_[k] - firstClass_[k] + 1);
  return static_cast<std::size_t>(most);
}

void PairBlock::addSector(const SectorTest& given, std::size_t direction) {
  const SectorTest test = given;
  const double bit = bitOf(direction);
  if (!test.isWhole)
    for (std::size_t k = 0; k < used_; ++k)
      directions_[k] += test.hasAngle(dx_[k], dy_[k]) ? bit : 0.0;
  else
    for (std::size_t k = 0; k < used_; ++k) directions_[k] += bit;
  if (std::isinf(test.band)) return;
  for (std::size_t k = 0; k < used_; ++k) {
    const bool isOut = directions_[k] >= bit && !test.isInBand(dx_[k], dy_[k]);
    directions_[k] -= isOut ? bit : 0.0;
  }
}

void PairBlock::addCone(const ConeTest& given, std::size_t direction) {
  const ConeTest test = given;
  const double bit = bitOf(direction);
  for (std::size_t k = 0; k < used_; ++k)
    directions_[k] += test.holds(dx_[k], dy_[k], dz_[k]) ? bit : 0.0;
}

void PairBlock::settle() {
  const double beyond = rule_.count() + 1.0;
  const bool several = !rule_.isUniform();
  for (std::size_t k = 0; k < used_; ++k) {
    const double lag = firstClass_[k];
    const double out = lag <= kZeroClass ? 1.0 : directions_[k];
    const double in = lag >= beyond ? 1.0 : out;
    directions_[k] = in > 0 ? in : 1.0;
    firstClass_[k] = in > 0 ? lag : beyond;
  }
  for (std::size_t k = 0; several && k < used_; ++k)
    lastClass_[k] = firstClass_[k] >= beyond ? beyond : lastClass_[k];
}

}  // namespace zevfit::zvm
