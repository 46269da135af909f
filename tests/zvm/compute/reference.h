#pragma once

#include <cstdint>
#include <vector>

#include "zvm/experimental/plan.h"
#include "zvm/points/point_set.h"

namespace zevfit::zvm::test {

/// Experimental semivariograms by plain loops over all pairs, written from the definitions: what
/// the fast way is held against.
struct Reference {
  struct Class {
    std::uint64_t pairs = 0;
    double distance = 0, semivariance = 0;  ///< means
    double size = 0;                        ///< mean of the products' absolute values, halved
  };
  std::vector<std::vector<std::vector<Class>>> classes;  ///< by pairing, direction, class
  std::vector<std::uint64_t> zeroPairs;                  ///< by pairing
};

Reference referenceOf(const PointSet& points, const Plan& plan);

}  // namespace zevfit::zvm::test
