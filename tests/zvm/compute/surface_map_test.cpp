// The semivariogram surface, with sums worked out by hand.
#include "zvm/experimental/surface_map.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <stdexcept>

#include "zvm/points/data_error.h"
#include "zvm/points/field.h"

namespace zevfit::zvm {
namespace {

struct Sample {
  double x, y, value;
};

PointSet pointsOf(const std::vector<Sample>& samples) {
  PointSet points;
  points.values.resize(1);
  for (const auto& [x, y, value] : samples) {
    points.x.push_back(x);
    points.y.push_back(y);
    points.values[0].push_back(value);
  }
  return points;
}

SurfaceMap mapOf(const std::vector<Sample>& samples, double width, std::int64_t reach,
                 unsigned threads = 1) {
  return surfaceMapOf(pointsOf(samples), 0, width, reach, threads);
}

// Steps and squared differences: (1,0) 1 and 4, (2,0) 9, (0,1) 25, (-1,1) 16, (-2,1) 4.
TEST(SurfaceMap, SumsStepsInSquares) {
  const SurfaceMap map = mapOf({{0, 0, 0}, {1, 0, 1}, {2, 0, 3}, {0, 1, 5}}, 1, 2);
  ASSERT_EQ(map.cells.size(), 25U);
  std::vector<SurfaceCell> expected(25);
  const auto set = [&](std::int64_t east, std::int64_t north, const SurfaceCell& cell) {
    expected.at(static_cast<std::size_t>((north + 2) * 5 + east + 2)) = cell;
    expected.at(static_cast<std::size_t>((2 - north) * 5 + 2 - east)) = cell;
  };
  set(1, 0, {1.25, 2});
  set(2, 0, {4.5, 1});
  set(0, 1, {12.5, 1});
  set(-1, 1, {8, 1});
  set(-2, 1, {2, 1});
  EXPECT_EQ(map.cells, expected);
}

TEST(SurfaceMap, AStepOnAnEdgeCountsInTheInnerSquare) {
  for (const double origin : {0.0, 1e6, -3e8}) {
    const SurfaceMap map = mapOf({{origin, 0, 0}, {origin + 1.5, 0.5, 2}}, 1, 1);
    EXPECT_EQ(map.at(1, 0), (SurfaceCell{2, 1})) << origin;
    EXPECT_EQ(map.at(-1, 0), (SurfaceCell{2, 1})) << origin;
  }
  // Tenths that no double is: 0.3 - 0.2 is below 0.1, 0.7 - 0.4 is 0.29999999999999993.
  const SurfaceMap map = mapOf({{0.2, 0, 0}, {0.3, 0, 2}, {0.6, 0, 4}}, 0.2, 2);
  EXPECT_EQ(map.at(0, 0), (SurfaceCell{2, 1}));
  EXPECT_EQ(map.at(1, 0), (SurfaceCell{2, 1}));
  EXPECT_EQ(map.at(2, 0), (SurfaceCell{8, 1}));
}

TEST(SurfaceMap, LeavesOutPairsInPlaceAndMissingValues) {
  const SurfaceMap map =
      mapOf({{0, 0, 0}, {0, 0, 7}, {1, 0, kMissing}, {0, 2, 1}, {9, 9, 5}}, 1, 2);
  EXPECT_EQ(map.at(0, 0), SurfaceCell());
  EXPECT_EQ(map.at(1, 0), SurfaceCell());
  // (0 - 1) and (7 - 1): 37 over twice two pairs.
  EXPECT_EQ(map.at(0, 2), (SurfaceCell{9.25, 2}));
  EXPECT_EQ(map.at(0, -2), (SurfaceCell{9.25, 2}));
}

TEST(SurfaceMap, IsTheSameForAnyNumberOfThreads) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> place(0, 100);
  std::vector<Sample> samples;
  for (int i = 0; i < 700; ++i) samples.push_back({place(random), place(random), place(random)});
  const SurfaceMap one = mapOf(samples, 3, 8, 1);
  EXPECT_EQ(mapOf(samples, 3, 8, 2).cells, one.cells);
  EXPECT_EQ(mapOf(samples, 3, 8, 40).cells, one.cells);
  // All pairs once more, one by one.
  std::uint64_t pairs = 0, found = 0;
  for (std::size_t i = 0; i < samples.size(); ++i)
    for (std::size_t j = 0; j < i; ++j)
      pairs += std::abs(samples[i].x - samples[j].x) <= 25.5 &&
                       std::abs(samples[i].y - samples[j].y) <= 25.5
                   ? 1U
                   : 0U;
  for (const SurfaceCell& cell : one.cells) found += cell.pairs;
  EXPECT_EQ(found + one.at(0, 0).pairs, 2 * pairs);
}

TEST(SurfaceMap, RefusesWhatNumbersCannotTell) {
  EXPECT_THROW(mapOf({{1e15, 0, 0}, {1e15 + 1, 0, 2}}, 1, 2), DataError);
  EXPECT_THROW(mapOf({{0, 0, -1e200}, {1, 0, 1e200}}, 1, 2), DataError);
}

// More squares than a vector may have: the threads fail, not the program.
TEST(SurfaceMap, ThrowsWhatItsThreadsThrow) {
  EXPECT_THROW(mapOf({{0, 0, 0}, {1, 0, 1}}, 1, 400'000'000, 3), std::length_error);
}

}  // namespace
}  // namespace zevfit::zvm
