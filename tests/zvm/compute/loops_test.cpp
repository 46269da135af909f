// The loops of each kind of processor leave the same bits.
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <vector>

#include "tests/zvm/compute/samples.h"
#include "zvm/experimental/pair_loops.h"

namespace zevfit::zvm::test {
namespace {

using Bits = std::vector<std::uint64_t>;

constexpr std::size_t kUsed = 3, kTaken = 501;  // neither is a whole number of vectors
constexpr double kSlots = 9;

/// Some places lie on a lattice, so that distances and angles meet edges.
std::vector<double> coordinates(std::uint64_t seed) {
  Random random(seed);
  std::vector<double> column;
  for (std::size_t i = 0; i < kTaken; ++i)
    column.push_back(i % 3 == 0 ? 0.1 * std::floor(8 * random.next()) : random.next());
  return column;
}

class Loops : public testing::Test {
 protected:
  Bits taken(PairLoops::Take take) const {
    PairRows rows;
    take(run_, UniformClasses(rule_), rows, kUsed);
    return bitsOf(rows);
  }

  /// Steps, then each of two directions, then the slots.
  Bits directed(const PairLoops& loops, bool inSpace) const {
    PairRows rows;
    (inSpace ? loops.spaceSteps : loops.planeSteps)(run_, UniformClasses(rule_), rows, 0);
    const char* const names[] = {"30;0", "75;0"};
    double bit = 1;
    for (const char* name : names) {
      Direction direction = toward(name, 45);
      direction.band = 0.4;
      if (inSpace)
        loops.cone(ConeTest(direction), bit, rows, kTaken);
      else
        loops.sector(SectorTest(direction), bit, rows, kTaken);
      bit *= 2;
    }
    loops.settle(rule_.count() + 1.0, kSlots, rows, kTaken);
    return bitsOf(rows);
  }

  static Bits bitsOf(const PairRows& rows) {
    Bits bits;
    for (const auto* row : {&rows.dx, &rows.dy, &rows.dz, &rows.h, &rows.firstClass,
                            &rows.directions, &rows.slot, &rows.rest})
      for (const double value : *row) bits.push_back(std::bit_cast<std::uint64_t>(value));
    return bits;
  }

  const std::vector<double> x_ = coordinates(1), y_ = coordinates(2), z_ = coordinates(3);
  const PairRun run_{x_.data(), y_.data(), z_.data(), 0.3, 0.4, 0.5, kTaken};
  const LagRule rule_{planOf(0.1, 6), 1};
};

TEST_F(Loops, TakeTheSamePairs) {
  const PairLoops& plain = pairLoops().front();
  for (const PairLoops& loops : pairLoops())
    for (const auto take :
         {&PairLoops::plane, &PairLoops::planeSteps, &PairLoops::space, &PairLoops::spaceSteps})
      EXPECT_EQ(taken(loops.*take), taken(plain.*take));
}

TEST_F(Loops, FindTheSameDirections) {
  const PairLoops& plain = pairLoops().front();
  for (const PairLoops& loops : pairLoops())
    for (const bool inSpace : {false, true})
      EXPECT_EQ(directed(loops, inSpace), directed(plain, inSpace));
}

TEST_F(Loops, TakeTheSameDifferences) {
  for (const PairLoops& loops : pairLoops()) {
    std::vector<double> differences(kTaken);
    loops.differences(x_.data(), 0.7, differences.data(), kTaken);
    for (std::size_t i = 0; i < kTaken; ++i) EXPECT_EQ(differences[i], x_[i] - 0.7);
  }
}

struct Settled {
  double lag, directions;                ///< before
  double slot, rest, thenLag, thenBits;  ///< and behind
};

// Six classes; 7 and 8 are beyond them; nine slots a direction.
TEST(Settling, PutsEachPairInOneSlotAndLeavesTheOtherDirections) {
  const Settled rows[] = {
      {3, 1, 3, 0, 3, 1},
      {3, 2, 12, 0, 3, 2},
      {3, 8 + 4 + 1, 30, 5, 3, 13},
      {0, 6, 0, 0, 0, 1},
      {7, 6, 7, 0, 7, 1},
      {8, 0, 8, 0, 8, 1},
      {5, 0, 7, 0, 7, 1},
      {1, 0x1p39, 352, 0, 1, 0x1p39},
      {1, 0x1p39 + 1, 352, 1, 1, 0x1p39 + 1},
  };
  for (const PairLoops& loops : pairLoops())
    for (const Settled& row : rows) {
      PairRows pairs;
      pairs.firstClass.fill(row.lag);
      pairs.directions.fill(row.directions);
      loops.settle(7, kSlots, pairs, PairRows::kSize);
      for (const std::size_t k : {std::size_t{0}, PairRows::kSize - 1}) {
        EXPECT_EQ(pairs.slot[k], row.slot) << row.directions;
        EXPECT_EQ(pairs.rest[k], row.rest) << row.directions;
        EXPECT_EQ(pairs.firstClass[k], row.thenLag) << row.directions;
        EXPECT_EQ(pairs.directions[k], row.thenBits) << row.directions;
      }
    }
}

}  // namespace
}  // namespace zevfit::zvm::test
