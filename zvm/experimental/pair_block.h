#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "zvm/experimental/direction_test.h"
#include "zvm/experimental/lag_rule.h"
#include "zvm/experimental/strips.h"

namespace zevfit::zvm {

/// Pairs in a row of arrays, so that one operation on all of them takes few instructions: first
/// their steps, distances and differences, then the class and the directions of each.
class PairBlock {
 public:
  static constexpr std::size_t kSize = 512;
  template <class T>
  using Row = std::array<T, kSize>;

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
  void takeAll() { directions_.fill(1); }
  /// Begins with no direction, then adds one after the other, from 0.
  void clearDirections() { directions_.fill(0); }
  void addSector(const SectorTest& test, std::size_t direction);
  void addCone(const ConeTest& test, std::size_t direction);
  /// Peers test the step from the earlier to the later row, or the other way round.
  template <class Test>
  void addOrdered(const Test& test, std::size_t direction, bool turned = false) {
    const double bit = bitOf(direction);
    for (std::size_t k = 0; k < used_; ++k) {
      const double sign = backward_[k] != turned ? -1 : 1;
      if (test.holds(sign * dx_[k], sign * dy_[k], sign * dz_[k])) directions_[k] += bit;
    }
  }
  /// Has pairs at the same place and pairs in no class in direction 0 alone, and pairs in no
  /// direction in no class of direction 0, so that each counts somewhere.
  void settle();

  /// The most classes that a pair is in.
  std::size_t mostClasses() const;
  const Row<double>& distances() const { return h_; }
  std::int32_t firstClass(std::size_t k) const { return static_cast<std::int32_t>(firstClass_[k]); }
  std::int32_t lastClass(std::size_t k) const { return static_cast<std::int32_t>(lastClass_[k]); }
  /// The directions of a pair as bits from 0; never none.
  std::uint64_t directions(std::size_t k) const {
    return static_cast<std::uint64_t>(directions_[k]);
  }
  const Row<double>& differences(std::size_t variable) const { return differences_[variable]; }

 private:
  static double bitOf(std::size_t direction) {
    return static_cast<double>(std::uint64_t{1} << direction);
  }
  template <bool Space, bool Steps>
  void takeSteps(std::size_t i, std::size_t first, std::size_t count);

  const SortedPoints& points_;
  const LagRule& rule_;
  bool steps_;
  std::size_t used_ = 0;
  Row<double> dx_{}, dy_{}, dz_{}, h_{};
  // Whole numbers as doubles: rows of one width are worked on together without being repacked.
  Row<double> firstClass_{}, lastClass_{}, directions_{};
  Row<bool> backward_{};
  std::vector<Row<double>> differences_;
};

}  // namespace zevfit::zvm
