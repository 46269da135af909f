// What --compat gamv takes over from GSLIB: its cones, and how often it counts a pair.
#include <gtest/gtest.h>

#include <cmath>

#include "tests/zvm/compute/samples.h"
#include "zvm/experimental/direction_test.h"

namespace zevfit::zvm::test {
namespace {

using Counts = std::vector<std::uint64_t>;

/// Of the steps in a cone of 22.5 degrees the share that gamv takes with tolerances of 22.5 for
/// azimuth and dip.
double shareTaken(std::string_view name) {
  const Direction direction = toward(name, 22.5);
  const ConeTest cone(direction);
  const GamvTest gamv(direction);
  Random random(3);
  int inCone = 0, taken = 0;
  for (int i = 0; i < 400'000; ++i) {
    const double dx = random.between(-1, 1), dy = random.between(-1, 1), dz = random.between(-1, 1);
    if (dx * dx + dy * dy + dz * dz > 1 || !cone.holds(dx, dy, dz)) continue;
    ++inCone;
    taken += gamv.holds(dx, dy, dz) ? 1 : 0;
  }
  return static_cast<double>(taken) / inCone;
}

// The steeper the dip, the fewer steps of a cone have an azimuth near its own
// (isaaks.com/gslibugs.html).
TEST(GamvCone, LosesStepsWithItsDip) {
  EXPECT_NEAR(shareTaken("30;0"), 1, 0.01);
  EXPECT_NEAR(shareTaken("30;30"), 0.94, 0.01);
  EXPECT_NEAR(shareTaken("30;60"), 0.59, 0.01);
  EXPECT_NEAR(shareTaken("30;-60"), 0.59, 0.01);
  EXPECT_NEAR(shareTaken("30;80"), 0.29, 0.01);
  EXPECT_NEAR(shareTaken("30;90"), 0.25, 0.01);
}

TEST(GamvCounts, PairsOfOneVariableTwiceWhereAllDirectionsCountTogether) {
  // Sides of 3 to the north and of 4 to the east.
  PointSet points;
  points.x = {0, 0, 4};
  points.y = {0, 3, 0};
  points.values = {{1, 2, 4}, {3, 1, 2}};
  Plan plan = planOf(1, 5, {toward("0;0", 90), toward("0;0", 22.5)});
  plan.compat = Compat::gamv;
  plan.pairings = {{0, 0, "A"}, {0, 1, "A-B"}};
  const Experimental result = computed(points, plan);
  EXPECT_EQ(pairsOf(result, 0, 0), (Counts{0, 0, 2, 2, 2}));
  EXPECT_EQ(pairsOf(result, 0, 1), (Counts{0, 0, 1, 0, 0}));
  EXPECT_EQ(pairsOf(result, 1, 0), (Counts{0, 0, 1, 1, 1}));
  EXPECT_EQ(pairsOf(result, 1, 1), (Counts{0, 0, 1, 0, 0}));
  // Counted twice or once, the mean is the same.
  EXPECT_DOUBLE_EQ(result.classes[0][0][2].semivariance, 0.5);
  EXPECT_DOUBLE_EQ(result.classes[1][0][2].semivariance, (2.0 - 1) * (1 - 3) / 2);
}

}  // namespace
}  // namespace zevfit::zvm::test
