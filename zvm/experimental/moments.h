#pragma once

#include <cstdint>
#include <vector>

namespace zevfit::zvm {

/// Of two columns, or of one with itself, at the points where both have a value.
struct Moments {
  std::uint64_t points = 0;
  double covariance = 0;  ///< sum of the products of deviations by points - 1; 0 below two points
};

/// In two passes, the second over deviations from the means.
Moments momentsOf(const std::vector<double>& first, const std::vector<double>& second);

}  // namespace zevfit::zvm
