#pragma once

#include <cstddef>
#include <vector>

#include "fitting/problem.h"

namespace zevfit::fitting {

/// Places to begin with, best first, none of them next to a better one.
class Starts {
 public:
  /// `near`: how far the parameters of neighbours are apart at most, by parameter.
  Starts(std::size_t most, Theta near) : most_(most), near_(std::move(near)) {}

  struct Place {
    Theta theta;
    double sum = 0;
  };
  void add(const Theta& theta, double sum);
  bool isOfUse(double sum) const { return places_.size() < most_ || sum < places_.back().sum; }
  const std::vector<Place>& places() const { return places_; }

 private:
  bool areNear(const Theta& a, const Theta& b) const;

  std::size_t most_;
  Theta near_;
  std::vector<Place> places_;
};

/// The parameters of a structure on a grid of so many.
std::vector<double> rangeGrid(const RangeLimits& limits, Form form, std::size_t points);

/// Looks through the joint grids of several structures, by the products of all their columns, which
/// are taken once for an ellipse.
class JointGrid {
 public:
  /// `forms`: those of all sets that are looked at.
  JointGrid(const Problem& problem, const std::vector<Form>& forms, std::size_t points,
            const Theta& ellipse);

  /// Adds what the ranges of a set of forms come to, equal forms by rising range.
  void scan(const std::vector<Form>& set, Starts& starts) const;

 private:
  /// The products of an entry: columns are the data, the nugget, and each form at each range.
  struct Products {
    std::vector<double> all;
    bool nonNegative = true;
    double unit = 1;
  };
  std::size_t columnOf(Form form, std::size_t point) const;
  double product(const Products& products, std::size_t a, std::size_t b) const {
    return products.all[a * columns_ + b];
  }
  double sumOf(const std::vector<Form>& set, const std::vector<std::size_t>& points) const;
  double sumOf(const Products& products, const std::vector<Form>& set,
               const std::vector<std::size_t>& points) const;
  Products productsOf(const Entry& entry, const Problem& problem,
                      const std::vector<double>& scales) const;

  std::vector<Form> forms_;
  std::vector<std::vector<double>> grids_;  ///< by form
  std::size_t points_ = 0, columns_ = 0;
  Theta ellipse_;
  bool fixedNugget_ = false;
  std::vector<Products> entries_;
};

}  // namespace zevfit::fitting
