#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "zvm/experimental/direction_test.h"
#include "zvm/experimental/lag_rule.h"
#include "zvm/experimental/pair_block.h"
#include "zvm/experimental/plan.h"
#include "zvm/experimental/strips.h"
#include "zvm/experimental/sums.h"

namespace zevfit::zvm {

/// Sums over pairs as they come, for one thread. What it returns depends on the pairs and their
/// order alone.
class Summing {
 public:
  /// All three stay with the caller.
  Summing(const SortedPoints& points, const Plan& plan, const LagRule& rule);

  /// Pairs of point i with the points from `first` to before `last`.
  void take(std::size_t i, std::size_t first, std::size_t last) {
    while (first < last) {
      first = block_.take(i, first, last);
      if (block_.isFull()) sumBlock();
    }
  }

  /// The sums of what was taken, and begins anew.
  SumTable finish();

 private:
  /// Sums that follow each other into the same class would wait for each other, so that each class
  /// has several places that take turns.
  static constexpr std::size_t kTurns = 4;
  struct Place {
    alignas(32) std::array<double, 2> sums{};  ///< of distances and of products
    std::uint64_t pairs = 0;

    void add(double h, double product);
  };

  void sumBlock();
  void classifyBlock();
  void listPlaces();
  template <bool Several>
  void listEach();
  void sumPlain();
  void sumDirected();
  void sumFirst();
  void sumProducts(std::size_t pairing);
  void sumKnown(std::size_t pairing);

  const Plan& plan_;
  const LagRule& rule_;
  bool isPlain_;     ///< one direction that takes all, classes that border on each other
  bool isComplete_;  ///< every variable has a value at every point
  std::vector<SectorTest> sectors_;
  std::vector<ConeTest> cones_;
  std::vector<GstatTest> gstat_;
  std::vector<GamvTest> gamv_;
  std::size_t slots_, directions_;
  std::array<std::uint32_t, 64> starts_{};  ///< of the slots of a direction
  PairBlock block_;
  std::vector<std::vector<Place>> places_;  ///< by pairing
  /// Where a pair counts, and which one it is: a pair in two directions stands twice.
  std::vector<std::uint32_t> listed_, pairOf_;
  std::size_t count_ = 0;  ///< of what is listed
};

}  // namespace zevfit::zvm
