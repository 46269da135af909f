#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "coreg/eigenvalues.h"
#include "fitting/problem.h"

namespace zevfit::fitting {

/// Rows and columns of the entries of a coregionalization.
using Places = std::vector<std::pair<std::size_t, std::size_t>>;

/// Sills of several variables and their cross variables, one matrix for the nugget and each
/// structure.
struct SillMatrices {
  std::vector<SymmetricMatrix> lines;
  double sum = 0;  ///< of weighted squared differences
  int rounds = 0;
};

/// The matrices for given forms and parameters, by the iteration of Goulard and Voltz: each line in
/// turn takes the best values beside the others, and of them the nearest matrix whose eigenvalues
/// are not below a millionth of its trace; until no sill changes by more than 1e-8 of the largest.
/// `places` are those of the entries of the problem. A told nugget is 0: then there is none.
class GoulardVoltz {
 public:
  GoulardVoltz(const Problem& problem, Places places, std::vector<Form> forms);

  /// From sills of 0.
  SillMatrices fit(std::span<const double> theta);
  /// From those of parameters nearby, in so many rounds at most.
  SillMatrices fit(std::span<const double> theta, const SillMatrices& start, int most);
  /// Sills of 0.
  SillMatrices none() const;
  /// Weighted differences, of all entries one after the other, as of the last call.
  std::span<const double> residuals() const { return residuals_; }

 private:
  void fillColumns(std::span<const double> theta);
  double step(SillMatrices& sills, std::size_t line);
  void fillResiduals(SillMatrices& sills);
  double sillOf(const SillMatrices& sills, std::size_t line, std::size_t entry) const {
    return sills.lines[line].at(places_[entry].first, places_[entry].second);
  }

  const Problem& problem_;
  Places places_;
  std::vector<Form> forms_;
  std::size_t order_ = 0;
  std::vector<std::vector<std::vector<double>>> columns_;   ///< by entry and line
  std::vector<std::vector<std::vector<double>>> products_;  ///< by entry, of lines
  std::vector<std::vector<double>> data_;                   ///< products of lines and data
  std::vector<double> residuals_;
};

}  // namespace zevfit::fitting
