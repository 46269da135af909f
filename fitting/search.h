#pragma once

#include <cstddef>
#include <vector>

#include "fitting/problem.h"
#include "fitting/tell.h"

namespace zevfit::fitting {

/// The best that forms can do.
struct Found {
  std::vector<Form> forms;
  Theta theta;
  double sum = 0;                        ///< of squared residuals, in units of the file
  double total = 0;                      ///< the same of the data themselves
  std::vector<Vec<kMostColumns>> sills;  ///< nugget and structures by entry, in units of the file
};

/// Finds for each set of forms, of none to three, the parameters with the least sum of squares:
/// structures by themselves on a grid of 60 ranges, several on joint grids, each for the ellipses
/// of the family; from the best places on by the golden section or, with several parameters,
/// downhill. `isReweighted`: weights by the model, renewed until they settle; each set then has its
/// own.
std::vector<Found> search(const Problem& problem, const std::vector<std::vector<Form>>& sets,
                          bool isReweighted, const Tell& whole = {});

/// How far neighbours are apart on a grid of so many ranges, by parameter.
Theta nearness(const Problem& problem, const std::vector<Form>& set, std::size_t points);

}  // namespace zevfit::fitting
