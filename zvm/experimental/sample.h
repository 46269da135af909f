#pragma once

#include <cstdint>

#include "zvm/points/point_set.h"

namespace zevfit::zvm {

/// The generator of samples, SplitMix64 (Steele, Lea and Flood, "Fast splittable pseudorandom
/// number generators", 2014): whole numbers alone, so that a seed draws the same points everywhere.
class SplitMix {
 public:
  explicit SplitMix(std::uint64_t seed) : state_(seed) {}

  std::uint64_t next();
  /// Below `bound`, which is above 0, each number with the same chance.
  std::uint64_t below(std::uint64_t bound);

 private:
  std::uint64_t state_;
};

/// Draws `count` points without return and keeps their order (Knuth, "The Art of Computer
/// Programming" 2, 3.4.2, algorithm S). A count that there isn't keeps all.
void drawSample(PointSet& points, std::uint64_t count, std::uint64_t seed);

/// Leaves out points at which no variable has a value; returns how many.
std::uint64_t dropUnknown(PointSet& points);

}  // namespace zevfit::zvm
