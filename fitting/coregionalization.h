#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "coreg/full_matrix.h"
#include "fitting/fit.h"

namespace zevfit::fitting {

/// Forms with their common ranges that a coregionalization was tried with. `sum` is that of the
/// standardised semivariances.
struct CoregionCandidate : Tried {
  std::vector<double> ranges;  ///< along Main where there is an ellipse
  double free = 0;  ///< the sum where each variable and cross variable has sills by itself
};

/// A linear model of coregionalization: the variables share forms and ranges, and the sills of each
/// line make a positive definite matrix.
struct CoregionFit {
  std::string refusal;  ///< empty where there is a model
  bool unbounded = false;
  std::vector<CoregionCandidate> ranking;  ///< as of one variable
  std::size_t chosen = 0;
  /// By entry, the variables first and the cross variables behind them in the order of the
  /// coregion; then by direction, from 0.
  std::vector<std::vector<NestedModel>> models;
  std::size_t classes = 0;  ///< of all entries

  bool isOffered() const { return refusal.empty(); }
  const CoregionCandidate& choice() const { return ranking.at(chosen); }
};

/// Fits variables and all their cross variables together, by the iteration of Goulard and Voltz
/// (Mathematical Geology 24, 1992) on semivariances divided by the standard deviations of the two
/// variables; eigenvalues below a millionth of a matrix's trace become that, so that the test of
/// coreg/ passes with the digits of a file. options.cross is not asked, and a nugget that is
/// told must be 0. Refused where two variables have no cross variable, and for a variance that is
/// not above 0. The ellipse is as of one variable; with options.directions free each direction has
/// ranges and sills of its own, and `ranking` is that of the first.
CoregionFit fitCoregion(const FileTables& data, const Coregion& coregion, const Options& options);

}  // namespace zevfit::fitting
