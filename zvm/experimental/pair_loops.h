#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "zvm/experimental/direction_test.h"
#include "zvm/experimental/lag_rule.h"

namespace zevfit::zvm {

/// What is known of each pair of a block.
struct PairRows {
  static constexpr std::size_t kSize = 512;
  using Row = std::array<double, kSize>;

  Row dx{}, dy{}, dz{}, h{};
  // Whole numbers as doubles: rows of one width are worked on together without being repacked.
  Row firstClass{}, lastClass{};
  Row directions{};    ///< as bits from 0
  Row slot{}, rest{};  ///< of the first class in the last direction; the bits of the others
};

/// Points in a row, and the point that each of them makes a pair with.
struct PairRun {
  const double *xs = nullptr, *ys = nullptr, *zs = nullptr;
  double x = 0, y = 0, z = 0;
  std::size_t count = 0;
};

/// The class of a distance where classes border on each other; of one beyond them one of the two
/// numbers behind theirs. The nearest whole number of widths is that of the last edge that is
/// passed, or of the next one; the comparison with its edge, the same double as in LagRule,
/// decides.
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

/// The loops over pairs in which the time goes, once for each kind of processor: each does the same
/// operations in the same order for a pair, so that all of them leave the same bits.
struct PairLoops {
  using Take = void (*)(const PairRun&, const UniformClasses&, PairRows&, std::size_t used);

  /// Distances and classes of pairs behind the first `used`, in the plane and in space, without and
  /// with the steps that directions need.
  Take plane, planeSteps, space, spaceSteps;
  /// What `values` are above one of them.
  void (*differences)(const double* values, double value, double* differences, std::size_t count);
  /// Adds the bit of a direction where a pair lies in it.
  void (*sector)(const SectorTest&, double bit, PairRows&, std::size_t used);
  void (*cone)(const ConeTest&, double bit, PairRows&, std::size_t used);
  /// Has pairs at the same place and pairs in no class in direction 0 alone, and pairs in no
  /// direction in the class `beyond` of direction 0; finds the slots, of which a direction has
  /// `slots`.
  void (*settle)(double beyond, double slots, PairRows&, std::size_t used);
};

/// The loops that this processor can run, the fastest last.
std::span<const PairLoops> pairLoops();

}  // namespace zevfit::zvm
