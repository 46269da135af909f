#pragma once

namespace zevfit {

/// A lag class: mean distance, semivariance and number of pairs.
struct DataPoint {
  double h = 0, gamma = 0, pairs = 0;
};

}  // namespace zevfit
