#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zevfit::zvm {

/// Points as columns of the same length, in the order of the file.
struct PointSet {
  std::vector<double> x, y, z;              ///< z is empty in the plane
  std::vector<std::vector<double>> values;  ///< by variable; kMissing where there is none
  std::vector<std::string> names;           ///< of the variables' columns, as the file has them

  std::uint64_t read = 0;     ///< rows of the file
  std::uint64_t skipped = 0;  ///< rows without coordinates, which are not among the points

  bool inSpace = false;  ///< whether there is z, also where there is no point
  std::size_t size() const { return x.size(); }
};

}  // namespace zevfit::zvm
