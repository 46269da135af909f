#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "coreg/full_matrix.h"
#include "fitting/fit.h"
#include "fitting/tell.h"

namespace zevfit::fitting {

/// Forms with their common ranges that a coregionalization was tried with. `sum` is that of the
/// standardised semivariances.
struct CoregionCandidate : Tried {
  std::vector<double> ranges;  ///< along Main where there is an ellipse
  double free = 0;             ///< the sum for these ranges with sills of each variable by itself
};

/// What was tried for all directions, or for one.
struct CoregionResult {
  std::string refusal;  ///< empty where there is a model
  bool unbounded = false;
  std::vector<CoregionCandidate> ranking;  ///< as of one variable
  std::size_t chosen = 0;
  std::size_t classes = 0;  ///< of all entries

  bool isOffered() const { return refusal.empty(); }
  const CoregionCandidate& choice() const { return ranking.at(chosen); }
};

/// A linear model of coregionalization: the variables share forms and ranges, and the sills of each
/// line make a positive definite matrix.
struct CoregionFit {
  /// Why there is no model, with names as in the file; empty where there is one.
  std::string refusal;
  /// One where the directions share an ellipse, otherwise by direction from 0, up to the first that
  /// is refused; none where it did not come so far.
  std::vector<CoregionResult> results;
  /// By entry, the variables first and the cross variables behind them in the order of the
  /// coregion; then by direction, from 0.
  std::vector<std::vector<NestedModel>> models;

  bool isOffered() const { return refusal.empty(); }
};

/// Fits variables and all their cross variables together, by the iteration of Goulard and Voltz
/// (Mathematical Geology 24, 1992) on semivariances divided by the standard deviations of the two
/// variables; eigenvalues below a millionth of a matrix's trace become that, so that the test of
/// coreg/ passes with the digits of a file. options.cross is not asked, and a nugget that is
/// told must be 0. Refused where two variables have no cross variable, and for a variance that is
/// not above 0. The ellipse is as of one variable; with options.directions free each direction has
/// ranges and sills of its own. Forms of no sill, power structures, are left out.
CoregionFit fitCoregion(const FileTables& data, const Coregion& coregion, const Options& options,
                        const Tell& whole = {});

}  // namespace zevfit::fitting
