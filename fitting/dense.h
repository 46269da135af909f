#pragma once

#include <array>
#include <cmath>
#include <cstddef>

namespace zevfit::fitting {

template <std::size_t N>
using Vec = std::array<double, N>;
/// A symmetric matrix of which the first rows and columns count.
template <std::size_t N>
using Square = std::array<Vec<N>, N>;

/// Solves a positive definite system by Cholesky's method. False where a pivot is not above
/// `least` times its diagonal element: then columns depend on each other.
template <std::size_t N>
bool solve(const Square<N>& matrix, const Vec<N>& right, std::size_t order, double least,
           Vec<N>& solution) {
  Square<N> factor;
  for (std::size_t i = 0; i < order; ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      double value = matrix[i][j];
      for (std::size_t k = 0; k < j; ++k) value -= factor[i][k] * factor[j][k];
      factor[i][j] = value / factor[j][j];
    }
    double pivot = matrix[i][i], value = right[i];
    for (std::size_t k = 0; k < i; ++k) {
      pivot -= factor[i][k] * factor[i][k];
      value -= factor[i][k] * solution[k];
    }
    if (!(pivot > least * matrix[i][i])) return false;
    factor[i][i] = std::sqrt(pivot);
    solution[i] = value / factor[i][i];
  }
  for (std::size_t i = order; i-- > 0;) {
    for (std::size_t k = i + 1; k < order; ++k) solution[i] -= factor[k][i] * solution[k];
    solution[i] /= factor[i][i];
  }
  return true;
}

/// Nugget and three structures.
inline constexpr std::size_t kMostColumns = 4;

/// Normal equations: the products of columns with each other and with the data.
struct Normal {
  Square<kMostColumns> products{};
  Vec<kMostColumns> right{};
};

struct Coefficients {
  Vec<kMostColumns> values{};
  double explained = 0;  ///< by which the sum of squares of the data is smaller with them
};

/// The least squares of up to four columns; where `nonNegative`, without coefficients below 0: the
/// best of all choices of columns whose own solution has none. Columns that depend on each other
/// are never taken together.
Coefficients leastSquares(const Normal& normal, std::size_t columns, bool nonNegative);

}  // namespace zevfit::fitting
