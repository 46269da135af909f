// What no computation is made of, and values that numbers cannot hold.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/zvm/compute/samples.h"
#include "zvm/points/data_error.h"

namespace zevfit::zvm::test {
namespace {

constexpr double kEndless = std::numeric_limits<double>::infinity();

/// A plan with one thing changed.
struct Changed {
  std::function<void(Plan&)> change;
  const char* refusal;
};

Plan goodPlan() { return planOf(1, 10, {toward("45;0", 22.5)}); }

TEST(Plan, IsRefusedWithItsReason) {
  const Changed rows[] = {
      {[](Plan& plan) {
         plan.pairings.assign(41, {0, 0, "A"});
       },
       "41 variables with their cross variables, and a variogram file holds 40"},
      {[](Plan& plan) { plan.directions.assign(21, toward("0;0", 90)); },
       "21 directions, and a variogram file holds 20"},
      {[](Plan& plan) { plan.pairings.clear(); }, "no variable is chosen"},
      {[](Plan& plan) { plan.directions.clear(); }, "no direction is chosen"},
      {[](Plan& plan) { plan.lags.width = 0; }, "the width of the lag classes has to be above 0"},
      {[](Plan& plan) { plan.lags.width = kEndless; },
       "the width of the lag classes has to be above 0"},
      {[](Plan& plan) { plan.lags.count = 0; },
       "the number of lag classes has to be from 1 to 100000"},
      {[](Plan& plan) { plan.lags.count = 100'001; },
       "the number of lag classes has to be from 1 to 100000"},
      // 10 times 1e308 has no room in a double.
      {[](Plan& plan) { plan.lags.width = 1e308; },
       "the lag classes go beyond the range of numbers"},
      {[](Plan& plan) { plan.lags.tolerance = 0; }, "the lag tolerance has to be above 0"},
      {[](Plan& plan) { plan.directions[0].tolerance = 0; },
       "the tolerance of direction `45;0` has to be above 0 and at most 90 degrees"},
      {[](Plan& plan) { plan.directions[0].tolerance = 90.5; },
       "the tolerance of direction `45;0` has to be above 0 and at most 90 degrees"},
      {[](Plan& plan) { plan.directions[0].dip = -91; },
       "the dip of direction `45;0` has to be from -90 to 90 degrees"},
      {[](Plan& plan) { plan.directions[0].band = 0; },
       "the band of direction `45;0` has to be above 0"},
      {[](Plan& plan) { plan.directions[0].vband = -1; },
       "the band of direction `45;0` has to be above 0"},
  };
  EXPECT_EQ(planRefusal(goodPlan(), true), std::nullopt);
  for (const auto& [change, refusal] : rows) {
    Plan plan = goodPlan();
    change(plan);
    EXPECT_EQ(planRefusal(plan, true), refusal);
  }
}

TEST(Plan, TakesTheGreatestOfEach) {
  Plan plan = goodPlan();
  plan.pairings.assign(40, {0, 0, "A"});
  plan.directions.assign(20, toward("0;-90", 90));
  plan.lags.count = 100'000;
  EXPECT_EQ(planRefusal(plan, true), std::nullopt);
}

TEST(DirectionName, IsTwoNumbers) {
  for (const char* name :
       {"", "45", ";", "45;", ";0", "a;0", "45;b", "45 0;0", "1e999;0", "inf;0", "0;nan", "45;0;0"})
    EXPECT_FALSE(directionOf(name)) << name;
  const auto direction = directionOf(" -45.5 ; 1e1 ");
  ASSERT_TRUE(direction);
  EXPECT_EQ(direction->azimuth, -45.5);
  EXPECT_EQ(direction->dip, 10);
}

/// Why two points a step of 1 apart have no semivariogram.
std::string refusalOf(double one, double other) {
  PointSet points = scattered(2, 1, false, anywhere);
  points.x = {0, 1};
  points.y = {0, 0};
  points.values[0] = {one, other};
  try {
    computed(points, planOf(1, 2));
  } catch (const DataError& error) {
    return error.what();
  }
  return "";
}

// About their mean of 0 the squares of two values have the sum 2 a^2, and the square of their
// difference is 4 a^2; the greatest double is 1.797e308.
TEST(Values, ThatAreTooLargeAreRefused) {
  EXPECT_EQ(refusalOf(0.6e154, -0.6e154), "");
  EXPECT_EQ(refusalOf(0.8e154, -0.8e154), "the values of `A` are too large for a semivariance");
  EXPECT_EQ(refusalOf(1.1e154, -1.1e154), "the values of `A` are too large for a variance");
}

}  // namespace
}  // namespace zevfit::zvm::test
