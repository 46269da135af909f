#pragma once

#include <vector>

#include "fitting/problem.h"
#include "fitting/sill_matrices.h"
#include "fitting/tell.h"

namespace zevfit::fitting {

/// The best that forms can do for variables together.
struct FoundTogether {
  std::vector<Form> forms;
  Theta theta;
  SillMatrices sills;
  double sum = 0;    ///< of squared residuals, in units of the entries
  double free = 0;   ///< the same with sills of each entry by itself
  double total = 0;  ///< the same of the data themselves
};

/// Finds for each set of forms the common ranges for which matrices of sills have the least sum of
/// squares. It begins where sills by themselves are best, and from what the sets with a structure
/// less have come to, so that a further structure makes no sum worse; downhill from the best of
/// these, within a thousandth of the sum. `isReweighted` as of search.
std::vector<FoundTogether> searchTogether(const Problem& problem, const Places& places,
                                          const std::vector<std::vector<Form>>& sets,
                                          bool isReweighted, const Tell& whole = {});

}  // namespace zevfit::fitting
