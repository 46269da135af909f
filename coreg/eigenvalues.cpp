#include "coreg/eigenvalues.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
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

using Vectors = std::vector<std::vector<double>>;

/// Turns the matrix, and the vectors with it.
void rotate(SymmetricMatrix& matrix, Vectors& vectors, std::size_t p, std::size_t q) {
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
  for (std::size_t k = 0; k < matrix.order(); ++k) {
    const double atP = vectors[p][k], atQ = vectors[q][k];
    vectors[p][k] = c * atP - s * atQ;
    vectors[q][k] = s * atP + c * atQ;
  }
}

Vectors unitVectors(std::size_t order) {
  Vectors vectors(order, std::vector<double>(order));
  for (std::size_t i = 0; i < order; ++i) vectors[i][i] = 1;
  return vectors;
}

}  // namespace

double SymmetricMatrix::trace() const {
  double sum = 0;
  for (std::size_t i = 0; i < order_; ++i) sum += at(i, i);
  return sum;
}

Eigensystem eigensystem(SymmetricMatrix matrix) {
  int exponent = 0;
  // At about 1 no product overflows or is lost; a power of two changes no digit.
  std::frexp(largestElement(matrix), &exponent);
  scale(matrix, -exponent);
  Vectors vectors = unitVectors(matrix.order());
  const double small = largestElement(matrix) * std::numeric_limits<double>::min();
  for (int sweep = 0; sweep < kMostSweeps && largestBesideDiagonal(matrix) > small; ++sweep)
    for (std::size_t p = 0; p < matrix.order(); ++p)
      for (std::size_t q = p + 1; q < matrix.order(); ++q) rotate(matrix, vectors, p, q);
  std::vector<std::size_t> order(matrix.order());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, {}, [&](std::size_t i) { return matrix.at(i, i); });
  Eigensystem system;
  for (const std::size_t i : order) {
    system.values.push_back(std::ldexp(matrix.at(i, i), exponent));
    system.vectors.push_back(std::move(vectors[i]));
  }
  return system;
}

std::vector<double> eigenvalues(const SymmetricMatrix& matrix) {
  return eigensystem(matrix).values;
}

}  // namespace zevfit
