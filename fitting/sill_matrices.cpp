#include "fitting/sill_matrices.h"

#include <algorithm>
#include <cmath>

namespace zevfit::fitting {
namespace {

constexpr double kLeastEigenvalue = 1e-6;
constexpr double kSettled = 1e-8;
constexpr int kMostRounds = 1000;

/// The nearest matrix without eigenvalues below a part of its trace; all zeros where none is above
/// 0.
SymmetricMatrix positive(const SymmetricMatrix& matrix) {
  Eigensystem system = eigensystem(matrix);
  double trace = 0;
  for (double& value : system.values) trace += std::max(value, 0.0);
  SymmetricMatrix result(matrix.order());
  for (std::size_t k = 0; k < system.values.size(); ++k) {
    const double value = std::max(system.values[k], kLeastEigenvalue * trace);
    const std::vector<double>& v = system.vectors[k];
    for (std::size_t i = 0; i < matrix.order(); ++i)
      for (std::size_t j = 0; j <= i; ++j) result.set(i, j, result.at(i, j) + value * v[i] * v[j]);
  }
  return result;
}

double largestOf(const SillMatrices& sills) {
  double largest = 0;
  for (const SymmetricMatrix& line : sills.lines)
    for (std::size_t i = 0; i < line.order(); ++i) largest = std::max(largest, line.at(i, i));
  return largest;
}

}  // namespace

GoulardVoltz::GoulardVoltz(const Problem& problem, Places places, std::vector<Form> forms)
    : problem_(problem), places_(std::move(places)), forms_(std::move(forms)) {
  for (const auto& [row, column] : places_) order_ = std::max({order_, row + 1, column + 1});
  const std::size_t lines = forms_.size() + 1;
  for (const Entry& entry : problem.entries)
    columns_.emplace_back(lines, std::vector<double>(entry.size()));
  products_.assign(columns_.size(), {lines, std::vector<double>(lines)});
  data_.assign(columns_.size(), std::vector<double>(lines));
  residuals_.resize(problem.classes());
}

void GoulardVoltz::fillColumns(std::span<const double> theta) {
  std::vector<double> scales(problem_.family.directions());
  problem_.family.scales(theta.subspan(forms_.size()), scales);
  for (std::size_t e = 0; e < columns_.size(); ++e) {
    const Entry& entry = problem_.entries[e];
    columns_[e][0] = entry.roots;
    for (std::size_t s = 0; s < forms_.size(); ++s)
      fillColumn(entry, forms_[s], theta[s], scales, columns_[e][s + 1]);
    std::vector<double> values;
    for (std::size_t i = 0; i < entry.size(); ++i)
      values.push_back(entry.roots[i] * entry.values[i]);
    for (std::size_t a = 0; a < columns_[e].size(); ++a) {
      data_[e][a] = product(columns_[e][a], values);
      for (std::size_t b = 0; b < columns_[e].size(); ++b)
        products_[e][a][b] = product(columns_[e][a], columns_[e][b]);
    }
  }
}

/// Renews the matrix of a line; the largest change.
double GoulardVoltz::step(SillMatrices& sills, std::size_t line) {
  SymmetricMatrix best(order_);
  for (std::size_t e = 0; e < columns_.size(); ++e) {
    double left = data_[e][line];
    for (std::size_t other = 0; other < sills.lines.size(); ++other)
      if (other != line) left -= products_[e][line][other] * sillOf(sills, other, e);
    best.set(places_[e].first, places_[e].second, left / products_[e][line][line]);
  }
  best = positive(best);
  double change = 0;
  for (std::size_t i = 0; i < order_; ++i)
    for (std::size_t j = 0; j <= i; ++j)
      change = std::max(change, std::abs(best.at(i, j) - sills.lines[line].at(i, j)));
  sills.lines[line] = std::move(best);
  return change;
}

void GoulardVoltz::fillResiduals(SillMatrices& sills) {
  std::size_t at = 0;
  sills.sum = 0;
  for (std::size_t e = 0; e < columns_.size(); ++e) {
    const Entry& entry = problem_.entries[e];
    for (std::size_t i = 0; i < entry.size(); ++i, ++at) {
      double left = entry.roots[i] * entry.values[i];
      for (std::size_t k = 0; k < sills.lines.size(); ++k)
        left -= sillOf(sills, k, e) * columns_[e][k][i];
      residuals_[at] = left;
      sills.sum += left * left;
    }
  }
}

SillMatrices GoulardVoltz::none() const {
  return {std::vector(forms_.size() + 1, SymmetricMatrix(order_)), 0, 0};
}

SillMatrices GoulardVoltz::fit(std::span<const double> theta) {
  return fit(theta, none(), kMostRounds);
}

SillMatrices GoulardVoltz::fit(std::span<const double> theta, const SillMatrices& start, int most) {
  fillColumns(theta);
  SillMatrices sills{start.lines, 0, 0};
  const std::size_t first = problem_.nugget ? 1 : 0;
  for (double change = 1; sills.rounds < most && change > kSettled * largestOf(sills);
       ++sills.rounds) {
    change = 0;
    for (std::size_t k = first; k < sills.lines.size(); ++k)
      change = std::max(change, step(sills, k));
  }
  fillResiduals(sills);
  return sills;
}

}  // namespace zevfit::fitting
