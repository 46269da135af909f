#include "coreg/eigenvalues.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace zevfit {
namespace {

/// Convergence is quadratic: some six sweeps do, whatever the matrix.
constexpr int kMostSweeps = 60;

double largestElement(const SymmetricMatrix& matrix) {
  double largest = 0;
  for (std::size_t i = 0; i < matrix.order(); ++i)
    for (std::size_t j = i; j < matrix.order(); ++j)
      largest = std::max(largest, std::abs(matrix.at(i, j)));
  return largest;
}

double largestBesideDiagonal(const SymmetricMatrix& matrix) {
  double largest = 0;
  for (std::size_t i = 0; i < matrix.order(); ++i)
    for (std::size_t j = i + 1; j < matrix.order(); ++j)
      largest = std::max(largest, std::abs(matrix.at(i, j)));
  return largest;
}

void scale(SymmetricMatrix& matrix, int exponent) {
  for (std::size_t i = 0; i < matrix.order(); ++i)
    for (std::size_t j = i; j < matrix.order(); ++j)
      matrix.set(i, j, std::ldexp(matrix.at(i, j), exponent));
}

/// Cosine and sine of the rotation that makes the element in row p and column q zero.
std::pair<double, double> rotationOf(const SymmetricMatrix& matrix, std::size_t p, std::size_t q) {
  const double tau = (matrix.at(q, q) - matrix.at(p, p)) / (2 * matrix.at(p, q));
  const double t = (tau < 0 ? -1 : 1) / (std::abs(tau) + std::hypot(1.0, tau));
  const double c = 1 / std::hypot(1.0, t);
  return {c, t * c};
}

void rotate(SymmetricMatrix& matrix, std::size_t p, std::size_t q) {
  const double besides = matrix.at(p, q);
  if (besides == 0) return;
  const auto [c, s] = rotationOf(matrix, p, q);
  const double shift = s / c * besides;
  for (std::size_t k = 0; k < matrix.order(); ++k) {
    if (k == p || k == q) continue;
    const double atP = matrix.at(k, p), atQ = matrix.at(k, q);
    matrix.set(k, p, c * atP - s * atQ);
    matrix.set(k, q, s * atP + c * atQ);
  }
  matrix.set(p, p, matrix.at(p, p) - shift);
  matrix.set(q, q, matrix.at(q, q) + shift);
  matrix.set(p, q, 0);
}

}  // namespace

double SymmetricMatrix::trace() const {
  double sum = 0;
  for (std::size_t i = 0; i < order_; ++i) sum += at(i, i);
  return sum;
}

std::vector<double> eigenvalues(SymmetricMatrix matrix) {
  int exponent = 0;
  // At about 1 no product overflows or is lost; a power of two changes no digit.
  std::frexp(largestElement(matrix), &exponent);
  scale(matrix, -exponent);
  const double small = largestElement(matrix) * std::numeric_limits<double>::min();
  for (int sweep = 0; sweep < kMostSweeps && largestBesideDiagonal(matrix) > small; ++sweep)
    for (std::size_t p = 0; p < matrix.order(); ++p)
      for (std::size_t q = p + 1; q < matrix.order(); ++q) rotate(matrix, p, q);
  std::vector<double> values;
  for (std::size_t i = 0; i < matrix.order(); ++i)
    values.push_back(std::ldexp(matrix.at(i, i), exponent));
  std::ranges::sort(values);
  return values;
}

}  // namespace zevfit
