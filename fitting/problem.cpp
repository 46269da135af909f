#include "fitting/problem.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "fitting/elementary.h"

namespace zevfit::fitting {
namespace {

/// Semivariances of a model below this part of the largest value weigh as that.
constexpr double kLeastModel = 0.01;

/// The power of two next to the largest magnitude; 1 where all are 0.
double unitOf(const std::vector<double>& values) {
  double largest = 0;
  for (const double value : values) largest = std::max(largest, std::abs(value));
  if (!(largest > 0) || !std::isfinite(largest)) return 1;
  int exponent = 0;
  std::frexp(largest, &exponent);
  return std::ldexp(1.0, exponent);
}

void divide(std::vector<double>& values, double unit) {
  for (double& value : values) value /= unit;
}

double weightOf(const LagClass& lag, Weights weights) {
  if (weights == Weights::equal) return 1;
  if (weights == Weights::pairs) return lag.pairs;
  return lag.pairs / lag.distance / lag.distance;
}

void append(Entry& entry, const LagClass& lag, Weights weights) {
  entry.distances.push_back(lag.distance);
  entry.logarithms.push_back(logarithmOf(lag.distance));
  entry.values.push_back(lag.semivariance);
  entry.pairs.push_back(lag.pairs);
  entry.roots.push_back(weightOf(lag, weights));
}

/// The weights stand in place of their roots at first.
void takeRoots(Entry& entry) {
  entry.weightUnit = unitOf(entry.roots);
  for (double& root : entry.roots) root = std::sqrt(root / entry.weightUnit);
}

using Shape = double (*)(double ratio);

// Of sill 1, by distance in ranges.
double sphericalShape(double t) { return t > 1 ? 1 : t * (1.5 - 0.5 * t * t); }
double exponentialShape(double t) { return 1 - exponentialOf(-3 * t); }
double gaussianShape(double t) { return 1 - exponentialOf(-3 * t * t); }

template <Shape shape>
void fillShape(const Entry& entry, double range, std::span<const double> scales,
               std::span<double> column) {
  const double* distance = entry.distances.data();
  const double* root = entry.roots.data();
  for (std::size_t d = 0; d + 1 < entry.begin.size(); ++d) {
    const double factor = scales[d] / range;
    for (std::size_t i = entry.begin[d]; i < entry.begin[d + 1]; ++i)
      column[i] = root[i] * shape(distance[i] * factor);
  }
}

void fillPower(const Entry& entry, double exponent, std::span<double> column) {
  for (std::size_t i = 0; i < entry.size(); ++i)
    column[i] = entry.roots[i] * (exponentialOf(exponent * entry.logarithms[i]) / entry.unit);
}

void subtract(std::span<double> from, std::span<const double> what, double factor) {
  for (std::size_t i = 0; i < from.size(); ++i) from[i] -= factor * what[i];
}

}  // namespace

Entry entryOf(const std::vector<DirectionClasses>& directions, const Options& options,
              double scale) {
  Entry entry;
  entry.nonNegative = !options.cross;
  for (const DirectionClasses& direction : directions) {
    entry.begin.push_back(entry.size());
    for (const LagClass& lag : direction.classes) append(entry, lag, options.weights);
  }
  entry.begin.push_back(entry.size());
  divide(entry.values, scale);
  entry.unit = unitOf(entry.values);
  divide(entry.values, entry.unit);
  takeRoots(entry);
  return entry;
}

void shareUnits(std::vector<Entry>& entries) {
  double unit = 0, weightUnit = 0;
  for (const Entry& entry : entries) {
    unit = std::max(unit, entry.unit);
    weightUnit = std::max(weightUnit, entry.weightUnit);
  }
  for (Entry& entry : entries) {
    const double root = std::sqrt(weightUnit / entry.weightUnit);
    divide(entry.values, unit / entry.unit);
    divide(entry.roots, root);
    entry.unit = unit;
    entry.weightUnit = weightUnit;
  }
}

double reweigh(Entry& entry, std::span<const double> model) {
  double largest = 0;
  for (const double value : entry.values) largest = std::max(largest, std::abs(value));
  const double least = kLeastModel * largest, before = entry.weightUnit;
  std::vector<double> old = std::exchange(entry.roots, {});
  for (std::size_t i = 0; i < entry.size(); ++i) {
    const double value = std::max(std::abs(model[i]), least) * entry.unit;
    entry.roots.push_back(entry.pairs[i] / value / value);
  }
  takeRoots(entry);
  const double same = std::sqrt(before / entry.weightUnit);
  double change = 0;
  for (std::size_t i = 0; i < entry.size(); ++i)
    change = std::max(change, std::abs(entry.roots[i] - old[i] * same));
  return change;
}

std::size_t Problem::classes() const {
  std::size_t sum = 0;
  for (const Entry& entry : entries) sum += entry.size();
  return sum;
}

RangeLimits limitsOf(const std::vector<Entry>& entries) {
  RangeLimits limits;
  bool any = false;
  for (const Entry& entry : entries)
    for (const double logarithm : entry.logarithms) {
      limits.least = any ? std::min(limits.least, logarithm) : logarithm;
      limits.most = any ? std::max(limits.most, logarithm) : logarithm;
      any = true;
    }
  limits.least -= logarithmOf(2);
  limits.most += logarithmOf(4);
  return limits;
}

void fillColumn(const Entry& entry, Form form, double parameter, std::span<const double> scales,
                std::span<double> column) {
  if (form == Form::power) return fillPower(entry, parameter, column);
  const double range = exponentialOf(parameter);
  if (form == Form::spherical) return fillShape<sphericalShape>(entry, range, scales, column);
  if (form == Form::exponential) return fillShape<exponentialShape>(entry, range, scales, column);
  fillShape<gaussianShape>(entry, range, scales, column);
}

double product(std::span<const double> a, std::span<const double> b) {
  std::array<double, 4> sums{};
  const std::size_t whole = a.size() & ~std::size_t{3};
  for (std::size_t i = 0; i < whole; i += 4)
    for (std::size_t k = 0; k < 4; ++k) sums[k] += a[i + k] * b[i + k];
  for (std::size_t i = whole; i < a.size(); ++i) sums[0] += a[i] * b[i];
  return (sums[0] + sums[1]) + (sums[2] + sums[3]);
}

double squaresOf(std::span<const double> residuals) { return product(residuals, residuals); }

Projection::Projection(const Problem& problem, std::vector<Form> forms)
    : problem_(problem),
      forms_(std::move(forms)),
      scales_(problem.family.directions(), 1.0),
      sills_(problem.entries.size()),
      residuals_(problem.classes()) {
  std::size_t longest = 0;
  for (const Entry& entry : problem.entries) {
    begin_.push_back(begin_.empty() ? 0 : begin_.back());
    longest = std::max(longest, entry.size());
    begin_.back() += begin_.size() > 1 ? problem.entries[begin_.size() - 2].size() : 0;
  }
  for (std::vector<double>& column : columns_) column.resize(longest);
}

std::span<const double> Projection::residuals(std::span<const double> theta) {
  problem_.family.scales(theta.subspan(forms_.size()), scales_);
  for (std::size_t e = 0; e < problem_.entries.size(); ++e) project(e, theta);
  return residuals_;
}

void Projection::project(std::size_t at, std::span<const double> theta) {
  const Entry& entry = problem_.entries[at];
  const std::span<double> left = std::span(residuals_).subspan(begin_[at], entry.size());
  Vec<kMostColumns>& sills = sills_[at];
  sills = {};
  for (std::size_t i = 0; i < left.size(); ++i) left[i] = entry.roots[i] * entry.values[i];
  /// The sill of each column that is fitted, and the column.
  std::array<std::size_t, kMostColumns> places{};
  std::array<std::span<const double>, kMostColumns> columns;
  std::size_t count = 0;
  if (problem_.nugget) {
    sills[0] = *problem_.nugget;
    subtract(left, entry.roots, sills[0]);
  } else {
    columns[count++] = entry.roots;
  }
  for (std::size_t s = 0; s < forms_.size(); ++s) {
    const std::span<double> column = std::span(columns_[s]).first(entry.size());
    fillColumn(entry, forms_[s], theta[s], scales_, column);
    if (forms_[s] == Form::power) {
      sills[s + 1] = 1 / entry.unit;
      subtract(left, column, 1);
      continue;
    }
    places[count] = s + 1;
    columns[count++] = column;
  }
  Normal normal;
  for (std::size_t i = 0; i < count; ++i) {
    normal.right[i] = product(columns[i], left);
    for (std::size_t j = 0; j <= i; ++j)
      normal.products[i][j] = normal.products[j][i] = product(columns[i], columns[j]);
  }
  const Coefficients found = leastSquares(normal, count, entry.nonNegative);
  for (std::size_t i = 0; i < count; ++i) {
    sills[places[i]] = found.values[i];
    subtract(left, columns[i], found.values[i]);
  }
}

void Projection::clamp(std::span<double> theta) const {
  for (std::size_t s = 0; s < forms_.size(); ++s)
    theta[s] =
        std::clamp(theta[s], problem_.limits.lower(forms_[s]), problem_.limits.upper(forms_[s]));
  problem_.family.clamp(theta.subspan(forms_.size()));
}

}  // namespace zevfit::fitting
