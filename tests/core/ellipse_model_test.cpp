// One model for all directions: ranges from an ellipse or an ellipsoid.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "fitting/fit.h"
#include "tests/support/fit_session.h"
#include "tests/support/lag_classes.h"

namespace zevfit::fitting {
namespace {

using test::nested;

const NestedModel kModel = nested(0.1, {{Form::spherical, 0.3, 300}, {Form::spherical, 0.6, 1200}});

Options two() {
  Options options;
  options.forms = {Form::spherical};
  options.structures = 2;
  return options;
}

/// What distances along a direction count beside those along Main.
double scaleOf(const Axes& axes, const std::array<double, 2>& ratios, const Direction& direction) {
  const Vector u = unitVector(direction);
  const double a = dot(u, axes[0]), b = dot(u, axes[1]) / ratios[0],
               c = dot(u, axes[2]) / ratios[1];
  return std::sqrt(a * a + b * b + c * c);
}

std::vector<DirectionClasses> sampled(const Axes& axes, const std::array<double, 2>& ratios,
                                      const std::vector<Direction>& directions) {
  std::vector<DirectionClasses> all;
  for (const Direction& direction : directions)
    all.push_back({direction, test::classesOf(kModel, 20, 100, scaleOf(axes, ratios, direction))});
  return all;
}

/// The ranges that the model has along a direction, against the known ellipsoid.
void expectRanges(const Result& result, const Axes& axes, const std::array<double, 2>& ratios,
                  const std::vector<Direction>& directions) {
  ASSERT_TRUE(result.isOffered()) << result.refusal;
  ASSERT_EQ(result.models.size(), directions.size());
  for (std::size_t d = 0; d < directions.size(); ++d) {
    const NestedModel& model = result.models[d];
    EXPECT_EQ(model.nugget, result.choice().model.nugget);
    for (std::size_t s = 0; s < 2; ++s) {
      EXPECT_EQ(model.structures[s]->sill, result.choice().model.structures[s]->sill);
      const double known = kModel.structures[s]->range / scaleOf(axes, ratios, directions[d]);
      EXPECT_NEAR(model.structures[s]->range / known, 1, 1e-3);
      EXPECT_NEAR(model.structures[s]->sill, kModel.structures[s]->sill, 1e-3);
    }
  }
}

TEST(EllipseModel, FindsAzimuthAndRatioOfFourDirections) {
  const Axes axes = rightAngled({30, 0}, {120, 0});
  const std::vector<Direction> directions{{0, 0}, {45, 0}, {90, 0}, {135, 0}};
  const Result result = ellipseModel(sampled(axes, {0.4, 0.4}, directions), two());
  expectRanges(result, axes, {0.4, 0.4}, directions);
  const Anisotropy& found = *result.choice().anisotropy;
  EXPECT_TRUE(found.plane);
  EXPECT_NEAR(found.angles.azimuth, 30, 0.05);
  EXPECT_EQ(found.angles.dip, 0);
  EXPECT_NEAR(found.minor1, 0.4, 1e-3);
  EXPECT_EQ(found.minor2, found.minor1);
  EXPECT_NEAR(result.choice().model.structures[1]->range / 1200, 1, 1e-3);
  EXPECT_EQ(result.choice().parameters, 7U);  // nugget, two sills, two ranges, azimuth, ratio
  EXPECT_EQ(result.classes, 80U);
}

// The same whichever way Main points, and from three directions.
TEST(EllipseModel, FindsEachAzimuth) {
  const std::vector<Direction> directions{{10, 0}, {70, 0}, {130, 0}};
  for (int azimuth = 0; azimuth < 180; azimuth += 20) {
    const Axes axes = rightAngled({1.0 * azimuth, 0}, {azimuth + 90.0, 0});
    const Result result = ellipseModel(sampled(axes, {0.5, 0.5}, directions), two());
    expectRanges(result, axes, {0.5, 0.5}, directions);
    EXPECT_NEAR(std::remainder(result.choice().anisotropy->angles.azimuth - azimuth, 180), 0, 0.05);
  }
}

TEST(EllipseModel, TakesOneOfTwoDirectionsForMain) {
  const Axes axes = rightAngled({60, 0}, {150, 0});
  const std::vector<Direction> directions{{150, 0}, {60, 0}};
  const Result result = ellipseModel(sampled(axes, {0.4, 0.4}, directions), two());
  expectRanges(result, axes, {0.4, 0.4}, directions);
  EXPECT_NEAR(result.choice().anisotropy->angles.azimuth, 60, 1e-6);
  EXPECT_EQ(result.choice().parameters, 6U);
}

// Beside a direction at half a right angle, either of the two may be Main.
TEST(EllipseModel, LooksAtBothOfTwoDirections) {
  const std::vector<Direction> directions{{0, 0}, {45, 0}};
  for (const double azimuth : {0.0, 45.0}) {
    const Axes axes = rightAngled({azimuth, 0}, {azimuth + 90, 0});
    const Result result = ellipseModel(sampled(axes, {0.4, 0.4}, directions), two());
    expectRanges(result, axes, {0.4, 0.4}, directions);
  }
}

TEST(EllipseModel, IsACircleWhereThereIsNoAnisotropy) {
  const Axes axes = rightAngled({0, 0}, {90, 0});
  const std::vector<Direction> directions{{0, 0}, {45, 0}, {90, 0}, {135, 0}};
  const Result result = ellipseModel(sampled(axes, {1, 1}, directions), two());
  expectRanges(result, axes, {1, 1}, directions);
  EXPECT_NEAR(result.choice().anisotropy->minor1, 1, 1e-3);
}

TEST(EllipseModel, FindsAnUprightEllipsoid) {
  const Axes axes = rightAngled({120, 0}, {30, 0});
  const std::vector<Direction> directions{{0, 0}, {45, 0}, {90, 0}, {135, 0}, {0, 90}};
  const Result result = ellipseModel(sampled(axes, {0.5, 0.1}, directions), two());
  expectRanges(result, axes, {0.5, 0.1}, directions);
  const Anisotropy& found = *result.choice().anisotropy;
  EXPECT_FALSE(found.plane);
  EXPECT_NEAR(found.angles.azimuth, 120, 0.05);
  EXPECT_NEAR(found.angles.dip, 0, 0.01);
  EXPECT_NEAR(found.minor1, 0.5, 1e-3);
  EXPECT_NEAR(found.minor2, 0.1, 1e-3);
}

TEST(EllipseModel, TakesThreeDirectionsAtRightAnglesForTheAxes) {
  const Axes axes = rightAngled({40, 30}, {130, 0});
  const std::vector<Direction> directions{{40, 30}, {130, 0}, {40, -60}, {85, 0}};
  const Result result = ellipseModel(sampled(axes, {0.6, 0.25}, directions), two());
  expectRanges(result, axes, {0.6, 0.25}, directions);
  const Anisotropy& found = *result.choice().anisotropy;
  EXPECT_NEAR(found.angles.azimuth, 40, 1e-6);
  EXPECT_NEAR(found.angles.dip, 30, 1e-6);
  EXPECT_NEAR(found.minor1, 0.6, 1e-3);
  EXPECT_NEAR(found.minor2, 0.25, 1e-3);
}

TEST(EllipseModel, FindsAnyEllipsoidFromManyDirections) {
  const Axes axes = rightAngled({25, 35}, {115, 10});
  const std::vector<Direction> directions{{0, 0},   {60, 0},   {120, 0},  {0, 45},
                                          {90, 45}, {180, 45}, {270, 45}, {0, 90}};
  const Result result = ellipseModel(sampled(axes, {0.6, 0.3}, directions), two());
  expectRanges(result, axes, {0.6, 0.3}, directions);
  const Anisotropy& found = *result.choice().anisotropy;
  EXPECT_NEAR(found.angles.azimuth, 25, 0.1);
  EXPECT_NEAR(found.angles.dip, 35, 0.1);
  EXPECT_NEAR(found.minor1, 0.6, 2e-3);
  EXPECT_NEAR(found.minor2, 0.3, 2e-3);
}

TEST(EllipseModel, HasAModelWhereADirectionHasNoClasses) {
  const Axes axes = rightAngled({30, 0}, {120, 0});
  const std::vector<Direction> directions{{0, 0}, {45, 0}, {90, 0}, {135, 0}};
  std::vector<DirectionClasses> classes = sampled(axes, {0.4, 0.4}, directions);
  classes[3].classes.clear();
  expectRanges(ellipseModel(classes, two()), axes, {0.4, 0.4}, directions);
}

TEST(EllipseModel, HasOneExponentInAllDirections) {
  std::vector<DirectionClasses> classes;
  for (const double azimuth : {0.0, 45.0, 90.0}) {
    classes.push_back({Direction{azimuth, 0}, {}});
    for (int k = 1; k <= 12; ++k)
      classes.back().classes.push_back({0.5 * k, 0.3 + std::pow(0.5 * k, 1.2), 300});
  }
  Options options;
  options.forms = {Form::power};
  const Result result = ellipseModel(classes, options);
  ASSERT_TRUE(result.isOffered()) << result.refusal;
  EXPECT_FALSE(result.choice().anisotropy);
  EXPECT_EQ(result.choice().parameters, 2U);
  for (const NestedModel& model : result.models) {
    EXPECT_NEAR(model.structures[0]->range, 1.2, 1e-4);
    EXPECT_EQ(model.structures[0]->range, result.models[0].structures[0]->range);
  }
}

TEST(EllipseModel, IsUnboundedWhereOneDirectionIs) {
  std::vector<DirectionClasses> classes;
  for (const double azimuth : {0.0, 90.0}) {
    classes.push_back({Direction{azimuth, 0}, test::classesOf(kModel, 20, 100)});
    if (azimuth == 90)
      for (LagClass& one : classes.back().classes) one.semivariance = 0.1 + 5e-6 * one.distance;
  }
  const Result result = ellipseModel(classes, {});
  EXPECT_FALSE(result.isOffered());
  EXPECT_TRUE(result.unbounded);
}

TEST(EllipseModel, NeedsAnglesAndClasses) {
  std::vector<DirectionClasses> classes{{Direction{0, 0}, {}}, {Direction{90, 0}, {}}};
  EXPECT_EQ(ellipseModel(classes, {}).refusal, "no class has pairs");
  classes[1].direction.reset();
  EXPECT_EQ(ellipseModel(classes, {}).refusal, "a direction has no azimuth and dip, as in 45;0");
}

TEST(FitVariable, SharesSillsOrFitsEachDirectionByItself) {
  Session session = test::emptyFile(1, {"0;0", "90;0"}, 20);
  const Axes axes = rightAngled({0, 0}, {90, 0});
  const std::vector<Direction> directions{{0, 0}, {90, 0}};
  const auto classes = sampled(axes, {0.5, 0.5}, directions);
  for (std::int64_t d = 1; d <= 2; ++d)
    test::setClasses(session, {1, d}, classes[static_cast<std::size_t>(d - 1)].classes);
  const VariableFit shared = fitVariable(session, 1, {});
  EXPECT_TRUE(shared.ellipse);
  EXPECT_TRUE(shared.isWhole());
  ASSERT_EQ(shared.results.size(), 1U);
  EXPECT_EQ(shared.results[0].models.size(), 2U);
  Options options;
  options.directions = Directions::free;
  const VariableFit free = fitVariable(session, 1, options);
  EXPECT_FALSE(free.ellipse);
  ASSERT_EQ(free.results.size(), 2U);
  EXPECT_EQ(free.results[0].models.size(), 1U);
  // Texts in place of numbers are a reason, not an end.
  session.hlag.set({1, 2}, 3, Cell::ofText("x"));
  EXPECT_EQ(fitVariable(session, 1, {}).results[0].refusal, "a text stands in place of a number");
  const VariableFit half = fitVariable(session, 1, options);
  EXPECT_TRUE(half.results[0].isOffered());
  EXPECT_FALSE(half.isWhole());
}

TEST(FitVariable, TellsHowFarItIs) {
  Session session = test::emptyFile(1, {"0;0", "90;0"}, 12);
  for (std::int64_t d = 1; d <= 2; ++d)
    test::setClasses(session, {1, d},
                     test::classesOf(nested(0.2, {{Form::spherical, 0.8, 500}}), 12, 100));
  for (const Directions directions : {Directions::ellipse, Directions::free}) {
    Options options;
    options.directions = directions;
    std::vector<double> shares;
    fitVariable(session, 1, options, [&](double share) { shares.push_back(share); });
    EXPECT_GT(shares.size(), 1U);
    EXPECT_TRUE(std::ranges::is_sorted(shares));
    EXPECT_NEAR(shares.back(), 1, 1e-12);
  }
}

TEST(FitClasses, AreThoseWithPairsDistanceAndNumbers) {
  Session session = test::emptyFile(1, {"0;0"}, 6);
  test::setClasses(session, {1, 1},
                   {{0, 1, 5}, {10, 2, 0}, {20, 3, 7}, {30, HUGE_VAL, 7}, {40, -1, 7}, {50, 2, 7}});
  session.nclass = 5;
  const Classes classes = classesOf(session, {1, 1});
  ASSERT_EQ(classes.size(), 2U);
  EXPECT_EQ(classes[0].distance, 20);
  EXPECT_EQ(classes[0].pairs, 7);
  EXPECT_EQ(classes[1].semivariance, -1);
}

}  // namespace
}  // namespace zevfit::fitting
