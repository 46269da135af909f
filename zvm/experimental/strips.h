#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "zvm/points/point_set.h"

namespace zevfit::zvm {

/// A row of cells that holds points: those from `first` to before `last`, by x.
struct Strip {
  std::uint32_t layer = 0, row = 0;
  std::size_t first = 0, last = 0;
  double yLow = 0, yHigh = 0, zLow = 0, zHigh = 0;  ///< of its points
};

/// Points sorted into strips along x, whose height and depth are a part of the longest distance of
/// a pair; within a strip by x. So the partners of a point in another strip stand in one run, and
/// memory is in proportion to the points wherever they lie. Coordinates stay as they are: the
/// difference of two doubles is rounded once whatever their size.
struct SortedPoints {
  std::vector<double> x, y, z;
  std::vector<std::vector<double>> values;
  std::vector<std::uint32_t> rows;  ///< where a point stood in the set; only where asked for
  std::vector<Strip> strips;
  std::uint32_t around = 0;      ///< strips farther apart than this many rows or layers never meet
  std::uint64_t duplicates = 0;  ///< points at the very place of an earlier one

  std::size_t size() const { return x.size(); }
};

/// `reach`: the longest distance of a pair. Takes the points over, column by column.
SortedPoints sortIntoStrips(PointSet points, double reach, bool withRows);

}  // namespace zevfit::zvm
