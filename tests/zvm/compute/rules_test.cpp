// Counts that follow from the rules by hand, and rows that gstat and gamv have computed.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <numeric>
#include <vector>

#include "tests/zvm/compute/samples.h"
#include "zvm/points/points_reader.h"

namespace zevfit::zvm::test {
namespace {

using Counts = std::vector<std::uint64_t>;

PointSet pointsAt(const std::vector<std::vector<double>>& places, std::vector<double> values) {
  PointSet points;
  points.inSpace = places[0].size() == 3;
  for (const auto& place : places) {
    points.x.push_back(place[0]);
    points.y.push_back(place[1]);
    if (points.inSpace) points.z.push_back(place[2]);
  }
  values.resize(places.size());
  points.values = {std::move(values)};
  return points;
}

/// Five by five points a unit apart, with values (3x + 7y) mod 5.
PointSet lattice() {
  PointSet points;
  points.values.resize(1);
  for (int x = 0; x < 5; ++x)
    for (int y = 0; y < 5; ++y) {
      points.x.push_back(x);
      points.y.push_back(y);
      points.values[0].push_back((3 * x + 7 * y) % 5);
    }
  return points;
}

void expectSemivariances(const Experimental& result, const std::vector<double>& expected) {
  for (std::size_t k = 0; k < expected.size(); ++k)
    EXPECT_NEAR(result.classes[0][0][k].semivariance, expected[k], 5e-5) << "class " << k + 1;
}

TEST(Lattice, ClassesUpToTheirUpperEdgeAsInGstat) {
  for (const Compat compat : {Compat::none, Compat::gstat}) {
    Plan plan = planOf(1, 3);
    plan.compat = compat;
    const Experimental result = computed(lattice(), plan);
    EXPECT_EQ(pairsOf(result), (Counts{40, 62, 86}));
    expectSemivariances(result, {3.0, 1.4597, 2.1279});
  }
}

TEST(Lattice, CentredClasses) {
  Plan plan = planOf(1, 3);
  plan.lags.tolerance = 0.5;
  const Experimental result = computed(lattice(), plan);
  EXPECT_EQ(pairsOf(result), (Counts{72, 78, 70}));
  expectSemivariances(result, {2.0903, 2.2436, 2.1857});
}

TEST(Lattice, GamvCountsOmnidirectionalPairsTwice) {
  Plan plan = planOf(1, 3);
  plan.compat = Compat::gamv;
  plan.lags.tolerance = 0.5;
  const Experimental result = computed(lattice(), plan);
  EXPECT_EQ(pairsOf(result), (Counts{144, 156, 140}));
  expectSemivariances(result, {2.0903, 2.2436, 2.1857});
  plan.lags.tolerance = 0.75;
  const Experimental wide = computed(lattice(), plan);
  EXPECT_EQ(pairsOf(wide), (Counts{144, 220, 140}));
  expectSemivariances(wide, {2.0903, 1.8682, 2.1857});
}

/// The pairs whose distance is at least `from` and less than `to`, by one centred class.
Experimental between(double from, double to) {
  Plan plan = planOf((from + to) / 2, 1);
  plan.lags.tolerance = (to - from) / 2;
  return computed(lattice(), plan);
}

// GSTools and scikit-gstat take the lower edge into a class and leave the upper one out.
TEST(Lattice, ClassesFromTheirLowerEdgeAsInGstoolsAndScikit) {
  EXPECT_EQ(pairsOf(between(0, 1)), (Counts{0}));
  EXPECT_EQ(pairsOf(between(1, 2)), (Counts{72}));
  expectSemivariances(between(1, 2), {2.0903});
  EXPECT_EQ(pairsOf(between(2, 3)), (Counts{96}));
  expectSemivariances(between(2, 3), {2.1146});
}

// Of 188 pairs 50 are diagonal, 25 in each way. GSTools leaves out both edges of a sector;
// scikit-gstat takes both into that of 90 degrees and one into that of 0.
TEST(Lattice, SectorsAsOthersHaveThem) {
  const auto counted = [](const char* name, double tolerance) {
    const Counts counts = pairsOf(computed(lattice(), planOf(1, 3, {toward(name, tolerance)})));
    return std::accumulate(counts.begin(), counts.end(), std::uint64_t{0});
  };
  EXPECT_EQ(counted("0;0", 44.9), 69U);
  EXPECT_EQ(counted("90;0", 44.9), 69U);
  EXPECT_EQ(counted("0;0", 45), 94U);
  EXPECT_EQ(counted("90;0", 45.1), 119U);
}

TEST(Lattice, DisjointSectorsSumToAllWhereGstatsDoNot) {
  const std::vector<Direction> halves{toward("0;0", 45), toward("90;0", 45)};
  const auto all = [](const Experimental& result, std::size_t direction) {
    const Counts counts = pairsOf(result, 0, direction);
    return std::accumulate(counts.begin(), counts.end(), std::uint64_t{0});
  };
  Plan plan = planOf(1, 3, halves);
  const Experimental own = computed(lattice(), plan);
  EXPECT_EQ(all(own, 0), 94U);
  EXPECT_EQ(all(own, 1), 94U);
  plan.compat = Compat::gstat;
  const Experimental gstat = computed(lattice(), plan);
  EXPECT_EQ(all(gstat, 0), 119U);
  EXPECT_EQ(all(gstat, 1), 94U);
}

TEST(Edges, ElevenPointsATenthApart) {
  std::vector<std::vector<double>> places;
  for (int i = 0; i < 11; ++i) places.push_back({0.1 * i, 0.0});
  Plan plan = planOf(0.1, 7);
  EXPECT_EQ(pairsOf(computed(pointsAt(places, {}), plan)), (Counts{10, 9, 8, 7, 6, 5, 4}));
  plan.compat = Compat::gstat;
  const Counts gstat = pairsOf(computed(pointsAt(places, {}), plan));
  EXPECT_EQ(Counts(gstat.begin(), gstat.begin() + 6), (Counts{8, 8, 6, 11, 6, 3}));
}

TEST(Edges, AreAHairAboveTheWidths) {
  // The edge at 2 lies 1e-9 widths, that is 1e-9, higher.
  const auto countsAt = [](double h) {
    return pairsOf(computed(pointsAt({{0, 0}, {h, 0}}, {}), planOf(1, 3)));
  };
  EXPECT_EQ(countsAt(2), (Counts{0, 1, 0}));
  EXPECT_EQ(countsAt(2 + 0.9e-9), (Counts{0, 1, 0}));
  EXPECT_EQ(countsAt(2 + 1.1e-9), (Counts{0, 0, 1}));
  EXPECT_EQ(countsAt(3 + 0.9e-9), (Counts{0, 0, 1}));
  EXPECT_EQ(countsAt(3 + 1.1e-9), (Counts{0, 0, 0}));
}

// Four units in the last place of 1e16 are 8.
TEST(Edges, OfClassesThatCoordinatesDoNotResolveAreRefused) {
  const PointSet points = pointsAt({{1e16, 0}, {1e16 + 64, 0}}, {});
  EXPECT_THROW(computed(points, planOf(30, 3)), DataError);
  EXPECT_EQ(pairsOf(computed(points, planOf(40, 3))), (Counts{0, 1, 0}));
}

TEST(Edges, OfCentredClassesTheLowerOneIsIn) {
  const auto countsAt = [](double h) {
    Plan plan = planOf(1, 3);
    plan.lags.tolerance = 0.25;
    return pairsOf(computed(pointsAt({{0, 0}, {h, 0}}, {}), plan));
  };
  EXPECT_EQ(countsAt(0.5), (Counts{0, 0, 0}));
  EXPECT_EQ(countsAt(0.75), (Counts{1, 0, 0}));
  EXPECT_EQ(countsAt(0.75 - 0.9e-9), (Counts{1, 0, 0}));
  EXPECT_EQ(countsAt(1.25), (Counts{0, 0, 0}));
  EXPECT_EQ(countsAt(1.25 - 1.1e-9), (Counts{1, 0, 0}));
  EXPECT_EQ(countsAt(3.2), (Counts{0, 0, 1}));
}

TEST(Zero, PairsAtOnePlaceAreLeftOutAndCountedOrInTheFirstClassOfEachDirection) {
  const PointSet points = pointsAt({{0, 0}, {0, 0}, {0, 0}, {0, 1}}, {1, 2, 4, 4});
  Plan plan = planOf(1, 2, {toward("0;0", 22.5), toward("90;0", 22.5)});
  const Experimental skipped = computed(points, plan);
  EXPECT_EQ(skipped.zeroPairs, (Counts{3}));
  EXPECT_EQ(skipped.frame.counts.duplicates, 2U);
  EXPECT_EQ(pairsOf(skipped, 0, 0), (Counts{3, 0}));
  EXPECT_EQ(pairsOf(skipped, 0, 1), (Counts{0, 0}));
  plan.zero = ZeroDistances::first;
  const Experimental first = computed(points, plan);
  EXPECT_EQ(pairsOf(first, 0, 0), (Counts{6, 0}));
  EXPECT_EQ(pairsOf(first, 0, 1), (Counts{3, 0}));
  // Differences 1, 3 and 2 at distance 0: (1 + 9 + 4) / 6.
  EXPECT_DOUBLE_EQ(first.classes[0][1][0].semivariance, 14.0 / 6);
  EXPECT_EQ(first.classes[0][1][0].distance, 0);
}

TEST(Empty, ClassesHaveTheirCentre) {
  Plan plan = planOf(10, 3);
  const Experimental result = computed(pointsAt({{0, 0}, {0, 1}}, {1, 2}), plan);
  EXPECT_EQ(result.classes[0][0][1].distance, 15);
  EXPECT_EQ(result.classes[0][0][2].distance, 25);
  plan.lags.tolerance = 2;
  EXPECT_EQ(computed(pointsAt({{0, 0}, {0, 1}}, {1, 2}), plan).classes[0][0][1].distance, 20);
}

TEST(GstatDip, DependsOnTheOrderOfTheRows) {
  Plan plan = planOf(2, 1, {toward("90;-45", 10)});
  plan.compat = Compat::gstat;
  EXPECT_EQ(pairsOf(computed(pointsAt({{0, 0, 0}, {1, 0, 1}}, {}), plan)), (Counts{1}));
  EXPECT_EQ(pairsOf(computed(pointsAt({{1, 0, 1}, {0, 0, 0}}, {}), plan)), (Counts{0}));
  plan.compat = Compat::none;
  EXPECT_EQ(pairsOf(computed(pointsAt({{1, 0, 1}, {0, 0, 0}}, {}), plan)), (Counts{1}));
}

TEST(GstatDip, OfTwoVariablesTakesEitherOrder) {
  PointSet points = pointsAt({{1, 0, 1}, {0, 0, 0}}, {1, 2});
  points.values.push_back({3, 7});
  Plan plan = planOf(2, 1, {toward("90;-45", 10), toward("90;0", 50)});
  plan.compat = Compat::gstat;
  plan.pairings = {{0, 0, "A"}, {0, 1, "A-B"}};
  const Experimental result = computed(points, plan);
  EXPECT_EQ(pairsOf(result, 0, 0), (Counts{0}));
  EXPECT_EQ(pairsOf(result, 1, 0), (Counts{1}));
  EXPECT_EQ(pairsOf(result, 1, 1), (Counts{2}));
  EXPECT_DOUBLE_EQ(result.classes[1][0][0].semivariance, 2);
}

TEST(GstatCross, CountsTwiceAndWantsTheSamePoints) {
  PointSet points = pointsAt({{0, 0}, {0, 1}, {1, 0}}, {1, 2, 4});
  points.values.push_back({3, 1, 2});
  Plan plan = planOf(1, 1);
  plan.compat = Compat::gstat;
  plan.pairings = {{0, 0, "A"}, {0, 1, "A-B"}};
  const Experimental result = computed(points, plan);
  EXPECT_EQ(pairsOf(result, 0), (Counts{2}));
  EXPECT_EQ(pairsOf(result, 1), (Counts{4}));
  points.values[1][2] = kMissing;
  EXPECT_THROW(computed(points, plan), DataError);
}

TEST(Heterotopic, CrossesTakeTheCommonPointsAlone) {
  PointSet points = pointsAt({{0, 0}, {0, 1}, {1, 0}}, {1, 2, 4});
  points.values.push_back({3, 1, kMissing});
  Plan plan = planOf(2, 1);
  plan.pairings = {{0, 0, "A"}, {1, 1, "B"}, {0, 1, "A-B"}};
  const Experimental result = computed(points, plan);
  EXPECT_EQ(pairsOf(result, 0), (Counts{3}));
  EXPECT_EQ(pairsOf(result, 2), (Counts{1}));
  EXPECT_DOUBLE_EQ(result.classes[2][0][0].semivariance, (2.0 - 1) * (1 - 3) / 2);
  EXPECT_EQ(result.frame.variables[2].points, 2U);
  // Sample variance of 1, 2, 4 and covariance of (1, 3) and (2, 1).
  EXPECT_DOUBLE_EQ(result.frame.variables[0].variance, 7.0 / 3);
  EXPECT_DOUBLE_EQ(result.frame.variables[2].variance, -1);
}

PointSet meuse() {
  std::ifstream file(std::string(ZEVFIT_SOURCE_DIR) + "/examples/meuse.csv");
  ReadOptions options;
  options.x = "x";
  options.y = "2";
  options.variables = {"zinc", "cadmium"};
  options.logs = {"zinc", "cadmium"};
  return readPoints(file, "meuse.csv", options);
}

TEST(Meuse, RowsOfGstat) {
  Plan plan = planOf(100, 15,
                     {toward("0;0", 90), toward("0;0", 22.5), toward("45;0", 22.5),
                      toward("90;0", 22.5), toward("135;0", 22.5)});
  const Experimental result = computed(meuse(), plan);
  EXPECT_EQ(result.frame.counts.used, 155U);
  const auto& all = result.classes[0][0];
  EXPECT_EQ(all[0].pairs, 52U);
  EXPECT_NEAR(all[0].distance, 77.0189781, 5e-8);
  EXPECT_NEAR(all[0].semivariance, .1299659350, 5e-11);
  EXPECT_EQ(all[1].pairs, 263U);
  EXPECT_NEAR(all[1].distance, 156.2337299, 5e-8);
  EXPECT_NEAR(all[1].semivariance, .2091154470, 5e-11);
  EXPECT_EQ(all[14].pairs, 427U);
  EXPECT_NEAR(all[14].distance, 1449.842100, 5e-7);
  EXPECT_NEAR(all[14].semivariance, .5645300295, 5e-11);
  Counts sums;
  for (std::size_t d = 0; d < 5; ++d) {
    const Counts counts = pairsOf(result, 0, d);
    sums.push_back(std::accumulate(counts.begin(), counts.end(), std::uint64_t{0}));
  }
  EXPECT_EQ(sums, (Counts{6506, 1782, 2843, 1066, 815}));
}

TEST(Meuse, CrossesOfGstatAreCountedTwice) {
  Plan plan = planOf(100, 15);
  plan.compat = Compat::gstat;
  plan.pairings = {{0, 0, "zinc"}, {0, 1, "zinc-cadmium"}};
  const Experimental result = computed(meuse(), plan);
  EXPECT_EQ(result.classes[0][0][0].pairs, 52U);
  EXPECT_EQ(result.classes[1][0][0].pairs, 104U);
}

TEST(Turning, AllPointsByAQuarterTurnsTheDirections) {
  const PointSet points = scattered(400, 1, false, anywhere);
  PointSet turned = points;
  // North becomes east.
  for (std::size_t i = 0; i < points.size(); ++i) {
    turned.x[i] = points.y[i];
    turned.y[i] = -points.x[i];
  }
  const Experimental before =
      computed(points, planOf(0.1, 5, {toward("10;0", 20), toward("100;0", 20)}));
  const Experimental after =
      computed(turned, planOf(0.1, 5, {toward("100;0", 20), toward("190;0", 20)}));
  for (std::size_t d = 0; d < 2; ++d) {
    EXPECT_EQ(pairsOf(before, 0, d), pairsOf(after, 0, d));
    for (std::size_t k = 0; k < 5; ++k)
      EXPECT_NEAR(before.classes[0][d][k].semivariance, after.classes[0][d][k].semivariance, 1e-12);
  }
}

TEST(Sectors, ThatAreDisjointSumToAll) {
  for (const int count : {2, 3, 4, 6, 9}) {
    std::vector<Direction> directions{toward("0;0", 90)};
    for (int d = 0; d < count; ++d)
      directions.push_back(toward(std::to_string(180.0 * d / count) + ";0", 90.0 / count));
    const PointSet points =
        scattered(400, 1, false, [](Random& random, auto, auto& x, auto& y, auto&) {
          x = std::floor(20 * random.next());
          y = std::floor(20 * random.next());
        });
    const Experimental result = computed(points, planOf(2, 5, directions));
    for (std::size_t k = 0; k < 5; ++k) {
      std::uint64_t sum = 0;
      for (std::size_t d = 1; d < directions.size(); ++d) sum += result.classes[0][d][k].pairs;
      EXPECT_EQ(sum, result.classes[0][0][k].pairs) << count << " sectors, class " << k + 1;
    }
  }
}

}  // namespace
}  // namespace zevfit::zvm::test
