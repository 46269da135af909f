#include "coreg/eigenvalues.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <random>
#include <vector>

namespace zevfit::test {
namespace {

SymmetricMatrix matrixOf(std::size_t order, std::initializer_list<double> upper) {
  SymmetricMatrix matrix(order);
  auto value = upper.begin();
  for (std::size_t i = 0; i < order; ++i)
    for (std::size_t j = i; j < order; ++j) matrix.set(i, j, *value++);
  return matrix;
}

void expectEigenvalues(const SymmetricMatrix& matrix, const std::vector<double>& expected,
                       double tolerance) {
  const std::vector<double> found = eigenvalues(matrix);
  ASSERT_EQ(found.size(), expected.size());
  for (std::size_t i = 0; i < found.size(); ++i) EXPECT_NEAR(found[i], expected[i], tolerance) << i;
}

TEST(Eigenvalues, AreThoseWorkedOutByHand) {
  expectEigenvalues(matrixOf(1, {-3}), {-3}, 0);
  // Of a diagonal matrix its diagonal.
  expectEigenvalues(matrixOf(3, {2, 0, 0, -1, 0, 5}), {-1, 2, 5}, 0);
  // (2 - x)^2 = 1.
  expectEigenvalues(matrixOf(2, {2, 1, 2}), {1, 3}, 1e-15);
  // With crosses .9, .9, -.9 and unit sills the vector (1, -1, -1) gives 1 - 1.8; the other two
  // are 1.9, since the trace is 3.
  expectEigenvalues(matrixOf(3, {1, 0.9, 0.9, 1, -0.9, 1}), {-0.8, 1.9, 1.9}, 1e-15);
  // All ones: 0, 0 and the order.
  expectEigenvalues(matrixOf(3, {1, 1, 1, 1, 1, 1}), {0, 0, 3}, 1e-15);
  // The second difference: 2 - 2 cos(k pi / 5).
  expectEigenvalues(matrixOf(4, {2, -1, 0, 0, 2, -1, 0, 2, -1, 2}),
                    {0.38196601125010515, 1.381966011250105, 2.618033988749895, 3.618033988749895},
                    1e-14);
  expectEigenvalues(matrixOf(2, {0, 0, 0}), {0, 0}, 0);
}

TEST(Eigenvalues, OfLargeAndSmallElementsAreScaled) {
  for (const double unit : {1e300, 1e-300})
    expectEigenvalues(matrixOf(2, {2 * unit, unit, 2 * unit}), {unit, 3 * unit}, 1e-14 * unit);
}

TEST(Eigenvalues, OfARandomMatrixHaveItsTraceAndItsNorm) {
  std::mt19937_64 engine(1);
  std::uniform_real_distribution<double> element(-1, 1);
  for (std::size_t order = 2; order <= 40; ++order) {
    SymmetricMatrix matrix(order);
    double norm = 0;
    for (std::size_t i = 0; i < order; ++i)
      for (std::size_t j = i; j < order; ++j) {
        const double value = element(engine);
        matrix.set(i, j, value);
        norm += (i == j ? 1 : 2) * value * value;
      }
    double sum = 0, squares = 0;
    for (const double value : eigenvalues(matrix)) {
      sum += value;
      squares += value * value;
    }
    EXPECT_NEAR(sum, matrix.trace(), 1e-12) << order;
    EXPECT_NEAR(squares, norm, 1e-10) << order;
  }
}

}  // namespace
}  // namespace zevfit::test
