#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "fitting/classes.h"
#include "fitting/dense.h"
#include "fitting/ellipse.h"
#include "fitting/options.h"

namespace zevfit::fitting {

/// The classes of a variable as least squares see them, direction by direction. Semivariances are
/// divided by `unit`, weights by `weightUnit`, powers of two both.
struct Entry {
  std::vector<double> distances, logarithms;  ///< of the distances
  std::vector<double> values, pairs;
  std::vector<double> roots;       ///< of the weights
  std::vector<std::size_t> begin;  ///< where each direction begins, and the end of the last
  double unit = 1, weightUnit = 1;
  bool nonNegative = true;

  std::size_t size() const { return distances.size(); }
  /// What a sum of squares of this entry is in the units of the file.
  double sumUnit() const { return unit * unit * weightUnit; }
};

/// The classes of all directions, weighted by options.weights; weights by the model are at first
/// those by distance. `scale` is what semivariances are divided by besides.
Entry entryOf(const std::vector<DirectionClasses>& directions, const Options& options,
              double scale = 1);

/// Gives entries the same units, so that their sums of squares can be added.
void shareUnits(std::vector<Entry>& entries);

/// Weights by the model: N by the square of its values at the classes, in units of the entry.
/// Returns the largest change of a weight's root, as a part of the largest root.
double reweigh(Entry& entry, std::span<const double> model);

/// The parameters that sills and nugget are no part of: of each structure the logarithm of its
/// mean range or, for a power form, its exponent; behind them those of the ellipse.
using Theta = std::vector<double>;

/// The parameters of structures that are looked at.
struct RangeLimits {
  double least = 0, most = 0;  ///< logarithms of ranges

  double lower(Form form) const { return form == Form::power ? kLeastExponent : least; }
  double upper(Form form) const { return form == Form::power ? kMostExponent : most; }

 private:
  static constexpr double kLeastExponent = 0.01, kMostExponent = 1.99;
};

/// What a fit has to explain: classes of one entry, or of several with common forms and ranges.
struct Problem {
  std::vector<Entry> entries;
  std::optional<double> nugget;  ///< told, in units of the one entry
  EllipseFamily family;
  RangeLimits limits;

  std::size_t classes() const;
};

/// From half the least to four times the largest distance.
RangeLimits limitsOf(const std::vector<Entry>& entries);

/// One structure of sill 1 at all classes of an entry, times the roots of the weights. `scales` are
/// those of the directions; a power form has none.
void fillColumn(const Entry& entry, Form form, double parameter, std::span<const double> scales,
                std::span<double> column);

/// The sum of products, in four sums side by side.
double product(std::span<const double> a, std::span<const double> b);

/// The best sills and nugget of each entry for given parameters.
class Projection {
 public:
  Projection(const Problem& problem, std::vector<Form> forms);

  const std::vector<Form>& forms() const { return forms_; }
  /// Weighted differences of data and model at all classes, of all entries one after the other.
  std::span<const double> residuals(std::span<const double> theta);
  /// Nugget and sills of an entry in its units, as of the last call; of a power form that of 1.
  const Vec<kMostColumns>& sills(std::size_t entry) const { return sills_[entry]; }
  /// Brings parameters to within their limits.
  void clamp(std::span<double> theta) const;

 private:
  void project(std::size_t entry, std::span<const double> theta);

  const Problem& problem_;
  std::vector<Form> forms_;
  std::vector<double> scales_;
  std::array<std::vector<double>, kMostColumns> columns_;
  std::vector<Vec<kMostColumns>> sills_;
  std::vector<double> residuals_;
  std::vector<std::size_t> begin_;  ///< of the residuals of each entry
};

/// The sum of squares.
double squaresOf(std::span<const double> residuals);

}  // namespace zevfit::fitting
