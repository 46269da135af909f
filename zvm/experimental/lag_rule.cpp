#include "zvm/experimental/lag_rule.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zevfit::zvm {

namespace {

constexpr double kRelativeEdge = 1e-9;
constexpr double kUnitsOfEdge = 4;
/// What gamv takes for no distance, and off its longest.
constexpr double kGamvZero = 1e-20;

double unitInLastPlace(double value) {
  return std::nextafter(value, std::numeric_limits<double>::infinity()) - value;
}

}  // namespace

LagRule::Kind LagRule::kindOf(const Plan& plan) {
  if (plan.compat == Compat::gstat) return Kind::gstat;
  if (plan.compat == Compat::gamv) return Kind::gamv;
  return plan.lags.tolerance ? Kind::centred : Kind::uniform;
}

LagRule::LagRule(const Plan& plan, double largest)
    : kind_(kindOf(plan)),
      width_(plan.lags.width),
      tolerance_(plan.lags.tolerance.value_or(plan.lags.width / 2)),
      count_(static_cast<std::int32_t>(plan.lags.count)) {
  const double count = static_cast<double>(count_);
  const double cutoff = count * width_;
  edge_ = std::max(kRelativeEdge * width_, kUnitsOfEdge * unitInLastPlace(largest));
  if (kind_ == Kind::gstat || kind_ == Kind::gamv) edge_ = 0;
  reach_ = cutoff + edge_;
  if (kind_ == Kind::gstat) reach_ = cutoff;
  if (kind_ == Kind::centred) reach_ = cutoff + tolerance_;
  if (kind_ == Kind::gamv)
    reach_ = std::min(cutoff + tolerance_, (count + 0.5 - kGamvZero) * width_);
}

ClassRange LagRule::classesOf(double h) const {
  return kind_ == Kind::gstat ? gstat(h) : overlapping(h);
}

/// sem.c: the distance in widths, and one less where that is a whole number as a double.
ClassRange LagRule::gstat(double h) const {
  if (h == 0) return {kZeroClass, kZeroClass};
  if (h > reach_) return none();
  const double widths = h / width_;
  const double below = std::floor(widths);
  const double k = widths == below ? below : below + 1;
  if (k > static_cast<double>(count_)) return none();
  return {static_cast<std::int32_t>(k), static_cast<std::int32_t>(k)};
}

bool LagRule::isIn(std::int32_t k, double h) const {
  const double centre = static_cast<double>(k) * width_;
  if (kind_ == Kind::gamv) return h >= centre - tolerance_ && h <= centre + tolerance_;
  return h >= centre - tolerance_ - edge_ && h < centre + tolerance_ - edge_;
}

ClassRange LagRule::overlapping(double h) const {
  if (h <= (kind_ == Kind::gamv ? kGamvZero : edge_)) return {kZeroClass, kZeroClass};
  if (h > reach_) return none();
  const double lowest = std::floor((h - tolerance_) / width_) - 1;
  auto k = static_cast<std::int32_t>(std::clamp(lowest, 1.0, static_cast<double>(count_)));
  while (k <= count_ && !isIn(k, h)) {
    if (static_cast<double>(k) * width_ - tolerance_ > h) return none();
    ++k;
  }
  if (k > count_) return none();
  ClassRange range{k, k};
  while (range.last < count_ && isIn(range.last + 1, h)) ++range.last;
  return range;
}

}  // namespace zevfit::zvm
