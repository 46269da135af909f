// The semivariograms of the drill holes that come with the program approach the model that
// make_holes.py made them from.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>

#include "tests/zvm/compute/samples.h"
#include "zvm/points/points_reader.h"

namespace zevfit::zvm::test {
namespace {

/// One field of limited extent deviates from its model: by at most this much of it where a class
/// has at least so many pairs.
constexpr double kTolerance = 0.1;
constexpr std::uint64_t kPairs = 500;

PointSet holes() {
  std::ifstream file(std::string(ZEVFIT_SOURCE_DIR) + "/examples/holes.csv");
  ReadOptions options;
  options.x = "x";
  options.y = "y";
  options.z = "z";
  options.variables = {"grade"};
  return readPoints(file, "holes.csv", options);
}

/// Nugget 0.2 and an exponential structure of sill 0.8 with this practical range.
double model(double distance, double range) {
  return 0.2 + 0.8 * (1 - std::exp(-3 * distance / range));
}

/// How many classes were near enough to have been looked at.
int expectNear(const std::vector<LagClass>& classes, double range) {
  int looked = 0;
  for (const LagClass& lag : classes) {
    if (lag.pairs < kPairs) continue;
    ++looked;
    const double expected = model(lag.distance, range);
    EXPECT_NEAR(lag.semivariance, expected, kTolerance * expected) << "at " << lag.distance;
  }
  return looked;
}

TEST(Holes, ApproachTheirModelDownTheHoles) {
  const Experimental result = computed(holes(), planOf(5, 11, {toward("0;90", 5)}));
  EXPECT_EQ(result.frame.counts.used, 4800U);
  EXPECT_NEAR(result.frame.variables[0].variance, 1, kTolerance);
  // 400 holes with 12 samples: 11 pairs of neighbours in each.
  EXPECT_EQ(result.classes[0][0][0].pairs, 4400U);
  EXPECT_EQ(expectNear(result.classes[0][0], 30), 10);
}

TEST(Holes, ApproachTheirModelInThePlane) {
  Plan plan = planOf(20, 10, {toward("0;0", 45), toward("90;0", 45)});
  for (Direction& direction : plan.directions) direction.vband = 1;
  const Experimental result = computed(holes(), plan);
  for (std::size_t d = 0; d < 2; ++d) EXPECT_GE(expectNear(result.classes[0][d], 90), 8);
}

}  // namespace
}  // namespace zevfit::zvm::test
