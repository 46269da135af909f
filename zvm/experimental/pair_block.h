#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "zvm/experimental/direction_test.h"
#include "zvm/experimental/lag_rule.h"
#include "zvm/experimental/pair_loops.h"
#include "zvm/experimental/strips.h"

namespace zevfit::zvm {

/// Pairs in a row of arrays, so that one operation on all of them takes few instructions: first
/// their steps, distances and differences, then the class and the directions of each.
class PairBlock {
 public:
  static constexpr std::size_t kSize = PairRows::kSize;
  using Row = PairRows::Row;

  /// `steps`: keeps the steps, which directions need. Both stay with the caller.
  PairBlock(const SortedPoints& points, const LagRule& rule, bool steps);

  bool isFull() const { return used_ == kSize; }
  std::size_t used() const { return used_; }
  void clear() { used_ = 0; }

  /// Takes pairs of point i with the points from `first` to before `last`, as many as there is room
  /// for; returns the first that is left.
  std::size_t take(std::size_t i, std::size_t first, std::size_t last);

  /// The classes of all pairs, where they do not border on each other; those that do have them as
  /// they are taken. A pair can be in several.
  void classify();

  /// Every pair is in direction 0 alone.
  void takeAll() { rows_.directions.fill(1); }
  /// Begins with no direction, then adds one after the other, from 0.
  void clearDirections() { rows_.directions.fill(0); }
  void addSector(const SectorTest& test, std::size_t direction) {
    loops_.sector(test, bitOf(direction), rows_, used_);
  }
  void addCone(const ConeTest& test, std::size_t direction) {
    loops_.cone(test, bitOf(direction), rows_, used_);
  }
  /// Peers test the step from the earlier to the later row, or the other way round.
  template <class Test>
  void addOrdered(const Test& test, std::size_t direction, bool turned = false) {
    const double bit = bitOf(direction);
    for (std::size_t k = 0; k < used_; ++k) {
      const double sign = backward_[k] != turned ? -1 : 1;
      if (test.holds(sign * rows_.dx[k], sign * rows_.dy[k], sign * rows_.dz[k]))
        rows_.directions[k] += bit;
    }
  }
  /// Has pairs at the same place and pairs in no class in direction 0 alone, and pairs in no
  /// direction in no class of direction 0, so that each counts somewhere. A direction has `slots`.
  void settle(std::size_t slots);

  /// The most classes that a pair is in.
  std::size_t mostClasses() const;
  const Row& distances() const { return rows_.h; }
  std::int32_t firstClass(std::size_t k) const {
    return static_cast<std::int32_t>(rows_.firstClass[k]);
  }
  std::int32_t lastClass(std::size_t k) const {
    return static_cast<std::int32_t>(rows_.lastClass[k]);
  }
  /// The directions of a pair as bits from 0; never none.
  std::uint64_t directions(std::size_t k) const { return bitsOf(rows_.directions[k]); }
  /// Where a pair counts by its first class and last direction, and its other directions.
  std::size_t slot(std::size_t k) const {
    return static_cast<std::size_t>(static_cast<std::int64_t>(rows_.slot[k]));
  }
  std::uint64_t otherDirections(std::size_t k) const { return bitsOf(rows_.rest[k]); }
  const Row& differences(std::size_t variable) const { return differences_[variable]; }

 private:
  static double bitOf(std::size_t direction) {
    return static_cast<double>(std::uint64_t{1} << direction);
  }
  static std::uint64_t bitsOf(double directions) {
    return static_cast<std::uint64_t>(static_cast<std::int64_t>(directions));
  }

  const SortedPoints& points_;
  const LagRule& rule_;
  const PairLoops& loops_;
  UniformClasses classes_;
  PairLoops::Take take_;
  std::size_t used_ = 0;
  PairRows rows_;
  std::array<bool, kSize> backward_{};
  std::vector<Row> differences_;
};

}  // namespace zevfit::zvm
