#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "zvm/points/point_set.h"

namespace zevfit::zvm {

/// A cell of a semivariogram surface.
struct SurfaceCell {
  double semivariance = 0;  ///< 0 without pairs
  std::uint64_t pairs = 0;  ///< unordered
  bool operator==(const SurfaceCell&) const = default;
};

/// The semivariogram over the plane of steps from point to point: squares of a width around the
/// origin and its multiples. A pair counts for its step and for the opposite one, so that the
/// surface is symmetric about the origin; a step on the edge of two squares counts in the inner
/// one.
struct SurfaceMap {
  std::int64_t reach = 0;          ///< squares on each side of the middle one
  double width = 0;                ///< in the unit of the coordinates
  std::vector<SurfaceCell> cells;  ///< row by row from the south, each from the west

  std::int64_t side() const { return 2 * reach + 1; }
  /// The cell around a step of so many widths, from -reach to reach.
  const SurfaceCell& at(std::int64_t east, std::int64_t north) const {
    return cells[static_cast<std::size_t>((north + reach) * side() + east + reach)];
  }
};

/// No surface has more squares on a side of the middle one.
inline constexpr std::int64_t kLargestReach = 100;

/// The surface of one variable of some points, heights left aside, by so many threads, whose number
/// changes no bit. Pairs at the same place are left out. `progress` is told the share that is done,
/// about ten times a second. Throws DataError where a semivariance is no finite number.
SurfaceMap surfaceMapOf(const PointSet& points, std::size_t variable, double width,
                        std::int64_t reach, unsigned threads,
                        const std::function<void(double)>& progress = {});

}  // namespace zevfit::zvm
