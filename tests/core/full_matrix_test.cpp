// Matrices of sills of all variables together.
#include "coreg/full_matrix.h"

#include <gtest/gtest.h>

#include "coreg/crosstest.h"
#include "session/fault.h"
#include "session/line.h"
#include "tests/support/model_lines.h"

namespace zevfit::test {
namespace {

/// Variables 1 to 3 with the crosses 4 (of 1 and 2), 5 (1 and 3), 6 (2 and 3).
const Coregion kThree{{1, 2, 3}, {{4, 1, 2}, {5, 1, 3}, {6, 2, 3}}};

/// Structure 1 with sills of 1 and these cross sills, in one direction.
Session unitSills(double cross12, double cross13, double cross23) {
  Session session;
  session.nvar = 6;
  session.ndir = 1;
  const double sills[] = {1, 1, 1, cross12, cross13, cross23};
  for (std::int64_t v = 1; v <= 6; ++v)
    setStructure(session, {v, 1}, Line::first, "S", sills[v - 1], 100);
  return session;
}

TEST(FullMatrix, HasSillsAndCrossSills) {
  const Session session = unitSills(0.2, 0.3, -0.4);
  const SymmetricMatrix sills = sillMatrix(session, kThree, Line::first, 1);
  EXPECT_EQ(sills.at(0, 0), 1);
  EXPECT_EQ(sills.at(1, 0), 0.2);
  EXPECT_EQ(sills.at(0, 2), 0.3);
  EXPECT_EQ(sills.at(2, 1), -0.4);
  EXPECT_EQ(sills.trace(), 3);
}

TEST(FullMatrix, FailsWhereAllPairsPass) {
  const Session session = unitSills(0.9, 0.9, -0.9);
  for (const CrossVariable& cross : kThree.crosses) {
    const CrossChoice choice{static_cast<int>(cross.cross - 1),
                             static_cast<int>(cross.first - 1),
                             static_cast<int>(cross.second - 1),
                             0,
                             0,
                             0};
    EXPECT_EQ(crosstest(session, choice).size(), 4U) << "the pair passes: the tree has no faults";
  }
  const auto verdicts = matrixTest(session, kThree, {1});
  ASSERT_EQ(verdicts.size(), 1U);
  EXPECT_EQ(verdicts[0].line, Line::first);
  EXPECT_EQ(verdicts[0].direction, 1);
  EXPECT_NEAR(verdicts[0].least, -0.8, 1e-14);
  EXPECT_EQ(verdicts[0].trace, 3);
  EXPECT_FALSE(verdicts[0].passed);
}

// Of crosses c, c and c the least eigenvalue is 1 - c: below 0 by 1e-9 of the trace, which is 3, it
// still passes.
TEST(FullMatrix, ForgivesTheRoundingOfSills) {
  struct Row {
    double cross;
    bool passed;
  };
  for (const Row& row : {Row{0.9, true}, Row{1, true}, Row{1 + 2.9e-9, true},
                         Row{1 + 3.1e-9, false}, Row{1.1, false}}) {
    const Session session = unitSills(row.cross, row.cross, row.cross);
    EXPECT_EQ(matrixTest(session, kThree, {1}).at(0).passed, row.passed) << row.cross;
  }
}

TEST(FullMatrix, LooksAtEachLineThatIsOnSomewhere) {
  Session session = unitSills(0.5, 0.5, 0.5);
  setNugget(session, {4, 1}, 0.1);
  setStructure(session, {2, 1}, Line::third, "E", 2, 100);
  const auto verdicts = matrixTest(session, kThree, {1});
  ASSERT_EQ(verdicts.size(), 3U);
  // A cross nugget of variables without one: 0 + 0 < 0.1 squared.
  EXPECT_EQ(verdicts[0].line, Line::nugget);
  EXPECT_NEAR(verdicts[0].least, -0.1, 1e-15);
  EXPECT_FALSE(verdicts[0].passed);
  EXPECT_EQ(verdicts[1].line, Line::first);
  EXPECT_TRUE(verdicts[1].passed);
  EXPECT_EQ(verdicts[2].line, Line::third);
  EXPECT_EQ(verdicts[2].trace, 2);
  EXPECT_TRUE(verdicts[2].passed);
}

// h^a and what has no form take no part of their cells in a semivariance.
TEST(FullMatrix, HasTheFactorsOfTheSemivariance) {
  Session session = unitSills(0.9, 0.9, -0.9);
  const double cells[] = {3, 4, 5, 7, -8, 9};
  for (std::int64_t v = 1; v <= 6; ++v)
    setStructure(session, {v, 1}, Line::second, v == 5 ? "X" : "P", cells[v - 1], 1.5);
  const SymmetricMatrix sills = sillMatrix(session, kThree, Line::second, 1);
  for (const std::size_t row : {0U, 1U, 2U}) EXPECT_EQ(sills.at(row, row), 1);
  EXPECT_EQ(sills.at(0, 1), 1);
  EXPECT_EQ(sills.at(0, 2), 0) << "a letter without a form";
  EXPECT_EQ(sills.at(1, 2), 1);
  setStructure(session, {5, 1}, Line::second, "P", -8, 1.5);
  EXPECT_TRUE(matrixTest(session, kThree, {1}).at(1).passed) << "all 1: eigenvalues 0, 0, 3";
}

TEST(FullMatrix, WithoutModelsOrVariablesHasNoVerdict) {
  Session session;
  resetFitState(session);
  EXPECT_TRUE(matrixTest(session, kThree, {1, 2}).empty());
  EXPECT_TRUE(matrixTest(unitSills(1, 1, 1), {}, {1}).empty());
}

TEST(FullMatrix, RefusesWhatIsNoNumber) {
  Session session = unitSills(0.5, 0.5, 0.5);
  line(session, {5, 1}, Line::first).sill() = Cell::ofText("x");
  EXPECT_THROW(matrixTest(session, kThree, {1}), Fault);
  session = unitSills(0.5, 0.5, 0.5);
  for (const std::int64_t v : {1, 2}) line(session, {v, 1}, Line::first).sill() = 1e308;
  EXPECT_THROW(matrixTest(session, kThree, {1}), Fault);
}

}  // namespace
}  // namespace zevfit::test
