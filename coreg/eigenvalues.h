#pragma once

#include <cstddef>
#include <vector>

namespace zevfit {

/// A symmetric matrix, all zeros at first; rows and columns count from 0.
class SymmetricMatrix {
 public:
  explicit SymmetricMatrix(std::size_t order) : order_(order), cells_(order * order) {}

  std::size_t order() const { return order_; }
  double at(std::size_t row, std::size_t column) const { return cells_.at(row * order_ + column); }
  /// Sets the element and its mirror image.
  void set(std::size_t row, std::size_t column, double value) {
    cells_.at(row * order_ + column) = value;
    cells_.at(column * order_ + row) = value;
  }
  double trace() const;

 private:
  std::size_t order_;
  std::vector<double> cells_;
};

/// The eigenvalues in rising order, by the cyclic Jacobi method (Golub and Van Loan, "Matrix
/// Computations", 4th edition, 8.5.3). All elements must be finite.
std::vector<double> eigenvalues(const SymmetricMatrix& matrix);

/// Eigenvalues in rising order, each with its vector of length 1; those of equal values are at
/// right angles too.
struct Eigensystem {
  std::vector<double> values;
  std::vector<std::vector<double>> vectors;
};
Eigensystem eigensystem(SymmetricMatrix matrix);

}  // namespace zevfit
