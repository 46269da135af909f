#pragma once

#include <cstdint>

#include "zvm/experimental/plan.h"

namespace zevfit::zvm {

/// The classes from `first` to `last`, both in; kZeroClass alone for a pair at the same place, and
/// the number of classes + 1 for a pair in no class.
struct ClassRange {
  std::int32_t first = 0, last = 0;
};
inline constexpr std::int32_t kZeroClass = 0;

/// Which classes a distance falls into.
class LagRule {
 public:
  /// `largest`: the largest absolute coordinate. A distance within max(1e-9 widths, 4 units in its
  /// last place) above an edge counts below it.
  LagRule(const Plan& plan, double largest);

  /// No pair farther apart is in any class.
  double reach() const { return reach_; }
  double width() const { return width_; }
  double edge() const { return edge_; }
  std::int32_t count() const { return count_; }
  /// Classes border on each other and take (k - 1) width + edge < h <= k width + edge, each product
  /// and sum as a double.
  bool isUniform() const { return kind_ == Kind::uniform; }

  /// Of a rule that is not uniform: what is uniform the loops over the pairs find themselves.
  ClassRange classesOf(double h) const;

 private:
  enum class Kind { uniform, centred, gstat, gamv };

  static Kind kindOf(const Plan& plan);
  ClassRange gstat(double h) const;
  ClassRange overlapping(double h) const;
  bool isIn(std::int32_t k, double h) const;
  ClassRange none() const { return {count_ + 1, count_ + 1}; }

  Kind kind_;
  double width_, tolerance_ = 0, edge_ = 0, reach_ = 0;
  std::int32_t count_;
};

}  // namespace zevfit::zvm
