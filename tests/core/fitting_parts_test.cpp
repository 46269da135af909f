// The parts of a fit: elementary functions, small least squares, minima, ellipses, cells.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

#include "coreg/eigenvalues.h"
#include "fitting/dense.h"
#include "fitting/elementary.h"
#include "fitting/ellipse.h"
#include "fitting/minimise.h"
#include "fitting/starts.h"
#include "fitting/write.h"
#include "session/line.h"
#include "tests/support/fit_session.h"
#include "tests/support/lag_classes.h"

namespace zevfit::fitting {
namespace {

TEST(Elementary, IsThatOfTheLibraryWithinAFewBits) {
  constexpr double kBits = 5e-16;
  for (double x = -699; x < 699; x += 0.0137)
    EXPECT_NEAR(exponentialOf(x) / std::exp(x), 1, kBits) << x;
  EXPECT_EQ(exponentialOf(0), 1);
  EXPECT_EQ(exponentialOf(-701), 0);
  EXPECT_EQ(exponentialOf(710), HUGE_VAL);
  EXPECT_EQ(exponentialOf(-HUGE_VAL), 0);
  for (double x = 1e-300; x < 1e300; x *= 1.0137)
    EXPECT_NEAR(logarithmOf(x), std::log(x), kBits * std::max(0.7, std::abs(std::log(x)))) << x;
  EXPECT_EQ(logarithmOf(1), 0);
}

/// Half the gradient of the sum of squares, by coefficient.
double slope(const Normal& normal, const Coefficients& found, std::size_t i) {
  double value = -normal.right[i];
  for (std::size_t j = 0; j < kMostColumns; ++j) value += normal.products[i][j] * found.values[j];
  return value;
}

// A solution without negative coefficients is the best if no coefficient above 0 has a slope, and
// none of 0 one downward (Lawson and Hanson, "Solving Least Squares Problems", 23.2).
TEST(LeastSquares, MeetTheConditionsOfTheBest) {
  test::Noise noise(1);
  for (int trial = 0; trial < 2000; ++trial) {
    std::array<std::array<double, 12>, kMostColumns + 1> columns;
    for (auto& column : columns)
      for (double& value : column) value = noise.normal();
    Normal normal;
    for (std::size_t i = 0; i < kMostColumns; ++i) {
      normal.right[i] = product(columns[i], columns[kMostColumns]);
      for (std::size_t j = 0; j < kMostColumns; ++j)
        normal.products[i][j] = product(columns[i], columns[j]);
    }
    const Coefficients found = leastSquares(normal, kMostColumns, true);
    const Coefficients free = leastSquares(normal, kMostColumns, false);
    for (std::size_t i = 0; i < kMostColumns; ++i) {
      EXPECT_GE(found.values[i], 0);
      EXPECT_GT(slope(normal, found, i), -1e-9);
      EXPECT_NEAR(found.values[i] > 0 ? slope(normal, found, i) : 0, 0, 1e-9);
      EXPECT_NEAR(slope(normal, free, i), 0, 1e-9);
    }
    EXPECT_GE(free.explained, found.explained - 1e-9);
  }
}

TEST(LeastSquares, NeverTakeColumnsThatDependOnEachOther) {
  Normal normal;
  normal.products[0] = {4, 4, 0, 0};
  normal.products[1] = {4, 4, 0, 0};
  normal.right = {8, 8, 0, 0};
  const Coefficients found = leastSquares(normal, 2, false);
  EXPECT_EQ(found.values[0] + found.values[1], 2);
  EXPECT_EQ(found.values[0] * found.values[1], 0);
  EXPECT_EQ(found.explained, 16);
}

TEST(GoldenSection, FindsAMinimumWithinOrAtAnEnd) {
  const auto square = [](double x) { return (x - 0.3) * (x - 0.3); };
  EXPECT_NEAR(goldenSection(square, -1, 2).theta[0], 0.3, 1e-7);
  EXPECT_NEAR(goldenSection(square, 1, 2).theta[0], 1, 1e-8);
}

// Rosenbrock's valley.
TEST(Descent, FollowsACurvedValleyAndStopsAtLimits) {
  std::array<double, 2> left{};
  const Residuals residuals = [&](std::span<const double> x) -> std::span<const double> {
    left = {10 * (x[1] - x[0] * x[0]), 1 - x[0]};
    return left;
  };
  const Minimum free = descend(residuals, [](std::span<double>) {}, {-1.2, 1});
  EXPECT_NEAR(free.theta[0], 1, 1e-6);
  EXPECT_NEAR(free.theta[1], 1, 1e-6);
  const Clamp clamp = [](std::span<double> x) { x[0] = std::min(x[0], 0.5); };
  const Minimum held = descend(residuals, clamp, {-1.2, 1});
  EXPECT_NEAR(held.theta[0], 0.5, 1e-6);
  EXPECT_NEAR(held.theta[1], 0.25, 1e-4);
}

TEST(Starts, KeepTheBestThatAreNoNeighbours) {
  Starts starts(2, {1.5});
  for (const auto& [at, sum] :
       std::vector<std::pair<double, double>>{{0, 5}, {1, 4}, {2, 6}, {5, 4.5}, {6, 3}, {9, 9}})
    starts.add({at}, sum);
  ASSERT_EQ(starts.places().size(), 2U);
  EXPECT_EQ(starts.places()[0].theta[0], 6);
  EXPECT_EQ(starts.places()[1].theta[0], 1);
}

TEST(Eigensystem, MakesTheMatrixAgain) {
  test::Noise noise(2);
  SymmetricMatrix matrix(6);
  for (std::size_t i = 0; i < 6; ++i)
    for (std::size_t j = 0; j <= i; ++j) matrix.set(i, j, noise.normal());
  const Eigensystem system = eigensystem(matrix);
  EXPECT_TRUE(std::ranges::is_sorted(system.values));
  for (std::size_t i = 0; i < 6; ++i)
    for (std::size_t j = 0; j < 6; ++j) {
      double sum = 0, angle = 0;
      for (std::size_t k = 0; k < 6; ++k) {
        sum += system.values[k] * system.vectors[k][i] * system.vectors[k][j];
        angle += system.vectors[i][k] * system.vectors[j][k];
      }
      EXPECT_NEAR(sum, matrix.at(i, j), 1e-13);
      EXPECT_NEAR(angle, i == j ? 1 : 0, 1e-13);
    }
}

// What the ranges along directions say is what axes and ratios say.
TEST(Ellipse, HasTheAxesThatItsScalesTell) {
  const std::vector<Arm> arms{{{0, 0}},   {{60, 0}},   {{120, 0}}, {{0, 45}},
                              {{90, 45}}, {{180, 45}}, {{0, 90}}};
  const EllipseFamily family = EllipseFamily::of(arms, 0);
  ASSERT_EQ(family.parameters(), 5U);
  const std::vector<double> theta{0.4, -0.3, 0.8, 0.2, -0.5};
  const auto [shape, main] = family.drawn(theta);
  EXPECT_GE(shape.minor1, shape.minor2);
  EXPECT_LE(shape.minor1, 1);
  std::vector<double> scales(arms.size());
  family.scales(theta, scales);
  for (std::size_t d = 0; d < arms.size(); ++d) {
    const Vector u = unitVector(arms[d].direction);
    const double along = dot(u, shape.axes[0]), across = dot(u, shape.axes[1]) / shape.minor1,
                 third = dot(u, shape.axes[2]) / shape.minor2;
    EXPECT_NEAR(scales[d] * main, std::sqrt(along * along + across * across + third * third), 1e-9);
  }
}

TEST(Ellipse, HasAsManyTermsAsDirectionsTell) {
  const auto terms = [](const std::vector<Arm>& arms) {
    return EllipseFamily::of(arms, 0).parameters();
  };
  EXPECT_EQ(terms({{{0, 0}}, {{180, 0}}}), 0U);
  EXPECT_EQ(terms({{{0, 0}}, {{90, 0}}}), 1U);
  EXPECT_EQ(terms({{{0, 0}}, {{50, 0}}, {{90, 0}}}), 2U);
  EXPECT_EQ(terms({{{0, 0}}, {{50, 0}}, {{90, 0}, false}}), 1U);
  EXPECT_EQ(terms({{{0, 0}}, {{0, 90}}}), 1U);
  EXPECT_EQ(terms({{{0, 0}}, {{90, 0}}, {{0, 90}}}), 2U);
  EXPECT_EQ(terms({{{0, 0}}, {{45, 0}}, {{90, 0}}, {{0, 90}}}), 3U);
}

std::string modelText(const Session& session, Pair pair) {
  std::string text = line(session, pair, Line::nugget).flag().toText();
  for (const Line which : kStructures) {
    const ConstLineRef at = line(session, pair, which);
    text += " " + at.flag().toText() + " " + at.letter() + " " + at.sill().toText() + " " +
            at.range().toText();
  }
  return text;
}

TEST(WriteModel, TicksWhatTheModelHas) {
  Session session = test::emptyFile(1, {"0;0"}, 1);
  const Pair pair{1, 1};
  writeModel(session, pair,
             test::nested(0.25, {{Form::exponential, 0.5, 300}, {Form::power, 1, 1.5}}));
  EXPECT_EQ(modelText(session, pair), "1 1 E 0.5 300 1 P 1 1.5 0 - 0 1E-05");
  EXPECT_EQ(session.ctotal(pair), 1.75);
  writeModel(session, pair, test::nested(0, {{Form::gaussian, 2, 40}}));
  EXPECT_EQ(modelText(session, pair), "0 1 G 2 40 0 - 0 1E-05 0 - 0 1E-05");
  EXPECT_EQ(session.ctotal(pair), 2);
}

TEST(WriteFit, LeavesWhatIsRefusedWithoutTicks) {
  Session session = test::emptyFile(1, {"0;0", "90;0"}, 15);
  test::setClasses(session, {1, 1},
                   test::classesOf(test::nested(0.1, {{Form::spherical, 0.9, 700}}), 15, 100));
  for (std::int64_t d = 1; d <= 2; ++d)
    writeModel(session, {1, d}, test::nested(5, {{Form::power, 1, 1}}));
  Options options;
  options.directions = Directions::free;
  writeFit(session, 1, fitVariable(session, 1, options));
  EXPECT_EQ(session.model1({1, 1}), "S");
  EXPECT_NEAR(session.a1({1, 1}).number(), 700, 0.1);
  EXPECT_EQ(modelText(session, {1, 2}), "0 0 - 0 1E-05 0 - 0 1E-05 0 - 0 1E-05");
  // One direction alone tells all there is: a circle.
  writeFit(session, 1, fitVariable(session, 1, {}));
  EXPECT_EQ(modelText(session, {1, 2}), modelText(session, {1, 1}));
  options.directions = Directions::ellipse;
  options.forms = {Form::gaussian};
  options.nugget = 0;
  writeFit(session, 1, fitVariable(session, 1, options));
  EXPECT_EQ(modelText(session, {1, 1}), "0 0 - 0 1E-05 0 - 0 1E-05 0 - 0 1E-05");
}

}  // namespace
}  // namespace zevfit::fitting
