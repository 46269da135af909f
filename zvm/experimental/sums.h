#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zevfit::zvm {

/// What is summed over the pairs of a class.
struct Sum {
  double distance = 0, product = 0;  ///< product of the differences of two variables
  std::uint64_t pairs = 0;

  void add(const Sum& more) {
    distance += more.distance;
    product += more.product;
    pairs += more.pairs;
  }
  bool operator==(const Sum&) const = default;
};

/// Sums by pairing, direction and class, classes from 0, where pairs at the same place are counted
/// once for all directions, in the first.
class SumTable {
 public:
  SumTable() = default;
  SumTable(std::size_t pairings, std::size_t directions, std::size_t classes)
      : directions_(directions), slots_(classes + 1), sums_(pairings * directions * slots_) {}

  Sum& at(std::size_t pairing, std::size_t direction, std::size_t slot) {
    return sums_[(pairing * directions_ + direction) * slots_ + slot];
  }
  const Sum& at(std::size_t pairing, std::size_t direction, std::size_t slot) const {
    return sums_[(pairing * directions_ + direction) * slots_ + slot];
  }

  /// All sums in a row.
  std::vector<Sum>& all() { return sums_; }
  const std::vector<Sum>& all() const { return sums_; }

  void add(const SumTable& more) {
    for (std::size_t i = 0; i < sums_.size(); ++i) sums_[i].add(more.sums_[i]);
  }

 private:
  std::size_t directions_ = 0, slots_ = 0;
  std::vector<Sum> sums_;
};

}  // namespace zevfit::zvm
