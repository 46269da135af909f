// How far a model lies from its points, by numbers worked out by hand.

#include "model/misfit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace zevfit {
namespace {

NestedModel nugget(double value) {
  NestedModel model;
  model.nugget = value;
  return model;
}

/// Distances 10 and 20 with semivariances 2 and 3 and 4 and 12 pairs.
const std::vector<DataPoint> kPoints{{10, 2, 4}, {20, 3, 12}};

// Differences 1 and 0: sqrt((4 * 1 + 12 * 0) / 16) = 0.5, over 8.
TEST(Misfit, WeightsThePointsByTheirPairs) {
  EXPECT_DOUBLE_EQ(misfit(nugget(3), kPoints, 8).value(), 0.0625);
}

// Spherical, sill 16, range 20: at 10 the curve is 16 (0.75 - 0.0625) = 11, at 20 it is 16.
// Differences 9 and 13: sqrt((4 * 81 + 12 * 169) / 16) = sqrt(147), over 8.
TEST(Misfit, TakesTheCurveOfTheModel) {
  NestedModel model;
  model.structures[0] = Structure{Form::spherical, 16, 20};
  EXPECT_DOUBLE_EQ(misfit(model, kPoints, 8).value(), std::sqrt(147.0) / 8);
}

// Difference 1 with -4 and 0 with 12 pairs, as above.
TEST(Misfit, WeightsANegativeCountByItsMagnitude) {
  const std::vector<DataPoint> points{{10, 2, -4}, {20, 3, 12}};
  EXPECT_DOUBLE_EQ(misfit(nugget(3), points, 8).value(), 0.0625);
}

TEST(Misfit, NeedsAWeight) {
  const std::vector<DataPoint> weightless{{10, 2, 0}};
  EXPECT_EQ(misfit(nugget(3), {}, 8), std::nullopt);
  EXPECT_EQ(misfit(nugget(3), weightless, 8), std::nullopt);
}

TEST(Misfit, IsAShareOfTheMagnitudeOfTheVariance) {
  EXPECT_DOUBLE_EQ(misfit(nugget(3), kPoints, -2).value(), 0.25);
  EXPECT_EQ(misfit(nugget(3), kPoints, 0), std::nullopt);
}

}  // namespace
}  // namespace zevfit
