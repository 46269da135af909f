// The fast way equals plain loops over all pairs: counts exactly, means but for rounding.
#include <gtest/gtest.h>

#include <ostream>
#include <string_view>

#include "tests/zvm/compute/reference.h"
#include "tests/zvm/compute/samples.h"

namespace zevfit::zvm::test {
namespace {

constexpr double kNear = 1e-12;

void expectSame(const PointSet& points, const Plan& plan) {
  const Reference reference = referenceOf(points, plan);
  const Experimental fast = computed(points, plan);
  EXPECT_EQ(fast.zeroPairs, reference.zeroPairs);
  for (std::size_t p = 0; p < plan.pairings.size(); ++p)
    for (std::size_t d = 0; d < plan.directions.size(); ++d)
      for (std::int64_t k = 1; k <= plan.lags.count; ++k) {
        const auto at = static_cast<std::size_t>(k - 1);
        const Reference::Class& slow = reference.classes[p][d][at];
        const LagClass& lag = fast.classes[p][d][at];
        const auto where = testing::Message()
                           << "pairing " << p << " direction " << d << " class " << k;
        ASSERT_EQ(lag.pairs, slow.pairs) << where;
        if (slow.pairs == 0) {
          EXPECT_EQ(lag.distance, plan.lags.centre(k)) << where;
          EXPECT_EQ(lag.semivariance, 0) << where;
          continue;
        }
        EXPECT_NEAR(lag.distance, slow.distance, kNear * slow.distance) << where;
        EXPECT_NEAR(lag.semivariance, slow.semivariance, kNear * slow.size) << where;
      }
}

/// A set of points in the unit square or cube, or one far from the origin that is as large.
struct Places {
  std::string_view name;
  std::size_t count;
  void (*place)(Random&, std::size_t, double&, double&, double&);
};

void clustered(Random& random, std::size_t i, double& x, double& y, double& z) {
  const double centre = static_cast<double>(i % 3) * 0.4;
  x = centre + 0.02 * random.next();
  y = centre * centre + 0.02 * random.next();
  z = 0.5 * centre + 0.02 * random.next();
}
void gridded(Random&, std::size_t i, double& x, double& y, double& z) {
  x = 0.1 * static_cast<double>(i % 8);
  y = 0.1 * static_cast<double>(i / 8 % 8);
  z = 0.1 * static_cast<double>(i / 64);
}
void duplicated(Random& random, std::size_t, double& x, double& y, double& z) {
  x = std::floor(8 * random.next()) / 8;
  y = std::floor(8 * random.next()) / 8;
  z = std::floor(3 * random.next()) / 8;
}
void collinear(Random& random, std::size_t, double& x, double& y, double& z) {
  x = random.next();
  y = 2 * x;
  z = -x;
}
void alongY(Random& random, std::size_t, double& x, double& y, double& z) {
  x = 3;
  y = random.next();
  z = 7;
}
void farAway(Random& random, std::size_t, double& x, double& y, double& z) {
  x = 500'000 + random.next();
  y = 4'649'776 + random.next();
  z = 1000 + random.next();
}
void farGrid(Random&, std::size_t i, double& x, double& y, double& z) {
  x = 500'000.25 + 0.1 * static_cast<double>(i % 12);
  y = 4'649'776.75 + 0.1 * static_cast<double>(i / 12 % 12);
  z = 0.1 * static_cast<double>(i / 144);
}
void oneFarOut(Random& random, std::size_t i, double& x, double& y, double& z) {
  anywhere(random, i, x, y, z);
  if (i == 7) x = 1e12;
  if (i == 8) y = -1e12;
}

constexpr Places kPlaces[] = {
    {"anywhere", 150, anywhere},   {"clustered", 120, clustered},
    {"gridded", 128, gridded},     {"duplicated", 150, duplicated},
    {"collinear", 80, collinear},  {"alongY", 80, alongY},
    {"farAway", 150, farAway},     {"farGrid", 144, farGrid},
    {"oneFarOut", 100, oneFarOut}, {"two", 2, anywhere},
    {"one", 1, anywhere},          {"none", 0, anywhere},
};

void PrintTo(const Places& places, std::ostream* out) { *out << places.name; }

class AgainstReference : public testing::TestWithParam<Places> {
 protected:
  PointSet points(bool inSpace, std::size_t variables = 1) const {
    return scattered(GetParam().count, variables, inSpace, GetParam().place);
  }
};

const std::vector<Direction>& fourSectors() {
  static const std::vector<Direction> sectors{toward("0;0", 22.5), toward("45;0", 22.5),
                                              toward("90;0", 22.5), toward("135;0", 22.5)};
  return sectors;
}

TEST_P(AgainstReference, Omnidirectional) {
  for (const bool inSpace : {false, true})
    for (const double width : {0.02, 0.1, 0.5}) expectSame(points(inSpace), planOf(width, 7));
}

TEST_P(AgainstReference, ZeroDistancesInTheFirstClass) {
  for (const bool inSpace : {false, true}) {
    Plan plan = planOf(0.1, 5, fourSectors());
    plan.zero = ZeroDistances::first;
    expectSame(points(inSpace), plan);
  }
}

TEST_P(AgainstReference, SectorsOfThePlane) {
  expectSame(points(false), planOf(0.1, 9, fourSectors()));
  expectSame(points(false),
             planOf(0.1, 9,
                    {toward("0;0", 45), toward("90;0", 45), toward("30;0", 60), toward("-200;0", 5),
                     toward("400.5;0", 89.5), toward("0;0", 90)}));
}

TEST_P(AgainstReference, BandsOfThePlane) {
  std::vector<Direction> directions = fourSectors();
  for (Direction& direction : directions) direction.band = 0.12345;
  directions.push_back(toward("20;0", 90));
  directions.back().band = 0.077;
  expectSame(points(false), planOf(0.1, 9, directions));
}

TEST_P(AgainstReference, ConesOfSpace) {
  expectSame(points(true), planOf(0.1, 9,
                                  {toward("0;0", 22.5), toward("0;90", 45), toward("45;0", 45),
                                   toward("33;-21", 12), toward("120;60", 80), toward("0;0", 90)}));
}

TEST_P(AgainstReference, BandsOfSpace) {
  std::vector<Direction> directions{toward("0;0", 45), toward("40;30", 30), toward("75;-60", 90)};
  for (Direction& direction : directions) {
    direction.band = 0.2345;
    direction.vband = 0.1357;
  }
  expectSame(points(true), planOf(0.1, 9, directions));
}

TEST_P(AgainstReference, LagTolerances) {
  for (const bool inSpace : {false, true})
    for (const double tolerance : {0.01, 0.05, 0.12, 0.3}) {
      Plan plan = planOf(0.1, 6, fourSectors());
      plan.lags.tolerance = tolerance;
      expectSame(points(inSpace), plan);
    }
}

TEST_P(AgainstReference, CrossesOfVariablesThatAreKnownEverywhere) {
  for (const bool inSpace : {false, true}) {
    Plan plan = planOf(0.1, 6, fourSectors());
    plan.pairings = {{0, 0, "A"}, {1, 1, "B"}, {2, 2, "C"}, {0, 1, "A-B"}, {2, 0, "C-A"}};
    expectSame(points(inSpace, 3), plan);
    plan.directions = {toward("0;0", 90)};
    expectSame(points(inSpace, 3), plan);
  }
}

TEST_P(AgainstReference, CrossesAtCommonPoints) {
  for (const bool inSpace : {false, true}) {
    Plan plan = planOf(0.1, 6, fourSectors());
    plan.pairings = {{0, 0, "A"}, {1, 1, "B"}, {2, 2, "C"}, {0, 1, "A-B"}, {1, 2, "B-C"}};
    PointSet some = points(inSpace, 3);
    for (std::size_t i = 0; i < some.size(); ++i) {
      if (i % 3 == 0) some.values[0][i] = kMissing;
      if (i % 4 == 1) some.values[1][i] = kMissing;
    }
    expectSame(some, plan);
    plan.directions = {toward("0;0", 90)};
    expectSame(some, plan);
  }
}

INSTANTIATE_TEST_SUITE_P(Points, AgainstReference, testing::ValuesIn(kPlaces));

TEST(AgainstReferenceLarge, ManyTasksAndBlocks) {
  expectSame(scattered(1500, 1, false, anywhere), planOf(0.05, 10, fourSectors()));
  expectSame(scattered(1000, 1, true, anywhere), planOf(0.1, 10));
}

}  // namespace
}  // namespace zevfit::zvm::test
