#include "session/structure_view.h"

#include <gtest/gtest.h>

#include <string>

#include "session/fault.h"
#include "tests/support/structure_sample.h"

namespace zevfit {
namespace {

// Two derived variables: 4 the sum of 1 and 2, 5 the sum of 2 and 3.
Session derivedSession() {
  Session session = structureSample();
  tick(session, {1, 2});
  createVariable(session, "first", 3);
  tick(session, {2, 3});
  createVariable(session, "second", 3);
  session.datavar = 4;
  return session;
}

TEST(RemoveVariable, NeedsAVariableOnShow) {
  Session session = derivedSession();
  expectRefused(removeVariable(session, ""), "Select variable!", true);
  EXPECT_EQ(session.nvar, 5);
  // This test comes before that of the file's variables.
  session.datavar = 1;
  expectRefused(removeVariable(session, ""), "Select variable!", true);
}

TEST(RemoveVariable, KeepsTheVariablesOfTheFile) {
  Session session = derivedSession();
  for (int v = 1; v <= 3; ++v) {
    session.datavar = v;
    expectRefused(removeVariable(session, session.varname(v)), "Cannot remove this variable!",
                  true);
  }
  EXPECT_EQ(session.nvar, 5);
  EXPECT_EQ(session.varname(1), "zinc");
}

TEST(RemoveVariable, MovesDataOfThoseAboveDown) {
  Session session = derivedSession();
  for (int d = 1; d <= 2; ++d) {
    session.gmax({4, d}) = 40 + d;
    session.gmax({5, d}) = 50 + d;
  }
  tick(session, {4});
  EXPECT_FALSE(removeVariable(session, "first"));
  EXPECT_EQ(session.nvar, 4);
  EXPECT_EQ(session.varname(4), "second");
  EXPECT_EQ(session.variance(4).number(), 2 + 3);
  EXPECT_FALSE(session.addflag(4));
  for (int d = 1; d <= 2; ++d) {
    for (int c = 1; c <= 2; ++c) {
      const int place = 10 * d + c;
      EXPECT_EQ(session.gam({4, d}, c), 500 + 2 * place);
      EXPECT_EQ(session.hlag({4, d}, c).number(), 10 * (300 + place));
      EXPECT_EQ(session.npairs({4, d}, c), static_cast<float>(100 * (100 + place)));
    }
    EXPECT_EQ(session.gmax({4, d}), 50 + d);
    EXPECT_EQ(session.hmax({4, d}), 3000 + d);
  }
  EXPECT_EQ(session.varname(3), "copper");
  EXPECT_EQ(session.gam({3, 1}, 1), 311);
}

TEST(RemoveVariable, MovesTheTick) {
  Session session = derivedSession();
  tick(session, {5});
  EXPECT_FALSE(removeVariable(session, "first"));
  EXPECT_TRUE(session.addflag(4));
}

TEST(RemoveVariable, LeavesLimitsAndFitStateToTheNextInTheSlot) {
  Session session = derivedSession();
  for (int v = 4; v <= 5; ++v) {
    session.ymax({v, 1}) = v;
    session.ymin({v, 1}) = -v;
    session.ymax0({v, 1}) = 10 * v;
    session.ymin0({v, 1}) = -10 * v;
    session.gmin({v, 1}) = 100 * v;
    session.xmax({v, 1}) = 1000 * v;
    session.use1({v, 1}) = v == 4;
    session.model1({v, 1}) = v == 4 ? "S" : "E";
    session.c1({v, 1}) = v;
    session.ctotal({v, 1}) = v;
    session.showsill({v, 1}) = v == 4;
    session.atyped({v, 1}) = v == 4;
  }
  EXPECT_FALSE(removeVariable(session, "first"));
  EXPECT_EQ(session.varname(4), "second");
  EXPECT_EQ(session.ymax({4, 1}), 4);
  EXPECT_EQ(session.ymin({4, 1}), -4);
  EXPECT_EQ(session.ymax0({4, 1}), 40);
  EXPECT_EQ(session.ymin0({4, 1}), -40);
  EXPECT_EQ(session.gmin({4, 1}), 400);
  EXPECT_EQ(session.xmax({4, 1}), 4000);
  EXPECT_EQ(session.use1({4, 1}).number(), 1);
  EXPECT_EQ(session.model1({4, 1}), "S");
  EXPECT_EQ(session.c1({4, 1}).number(), 4);
  EXPECT_EQ(session.ctotal({4, 1}), 4);
  EXPECT_TRUE(session.showsill({4, 1}));
  EXPECT_TRUE(session.atyped({4, 1}));
}

TEST(RemoveVariable, TakesTheLastOneWithoutAMove) {
  Session session = derivedSession();
  session.datavar = 5;
  EXPECT_FALSE(removeVariable(session, "second"));
  EXPECT_EQ(session.nvar, 4);
  EXPECT_EQ(session.varname(4), "first");
  EXPECT_EQ(session.gam({4, 1}, 1), 111 + 211);
}

TEST(RemoveVariable, MovesEachSlotAbove) {
  Session session = derivedSession();
  tick(session, {1, 3});
  EXPECT_FALSE(createIn(session, "third"));
  EXPECT_FALSE(removeVariable(session, "first"));
  EXPECT_EQ(session.varname(4), "second");
  EXPECT_EQ(session.varname(5), "third");
  EXPECT_EQ(session.gam({5, 2}, 1), 121 + 321);
  EXPECT_EQ(session.nvar, 5);
}

TEST(RemoveVariable, MovesOutOfSlot41) {
  Session session = structureSample();
  tick(session, {1, 2});
  while (session.nvar < 41) {
    ASSERT_FALSE(createIn(session, "v" + std::to_string(session.nvar + 1)));
  }
  session.datavar = 40;
  EXPECT_FALSE(removeVariable(session, "v40"));
  EXPECT_EQ(session.nvar, 40);
  EXPECT_EQ(session.varname(40), "v41");
}

TEST(RemoveVariable, FreesTheNameAndTheSlot) {
  Session session = derivedSession();
  EXPECT_FALSE(removeVariable(session, "first"));
  tick(session, {1, 2});
  EXPECT_FALSE(createIn(session, "first"));
  EXPECT_EQ(session.varname(5), "first");
  EXPECT_EQ(session.gam({5, 1}, 1), 111 + 211);
}

TEST(StartPair, IsTheFirstWithoutAModelBlock) {
  Session session = structureSample();
  session.use1({2, 1}) = 1;
  session.curvar = 3;
  session.curdir = 2;
  EXPECT_EQ(startPair(session), std::nullopt);
  EXPECT_EQ(session.selvar, 1);
  EXPECT_EQ(session.seldir, 1);
  EXPECT_EQ(session.curvar, 3);
  EXPECT_EQ(session.curdir, 2);
}

TEST(StartPair, IsTheFirstVariableWithStructure1InDirection1) {
  Session session = structureSample();
  session.hasmodel = true;
  session.selvar = session.seldir = 2;
  session.curdir = 2;
  session.use1({1, 2}) = 1;
  session.use0({1, 1}) = 1;
  session.use2({1, 1}) = 1;
  session.use1({2, 1}) = 1;
  session.use1({3, 1}) = 1;
  EXPECT_EQ(startPair(session), 2);
  EXPECT_EQ(session.curvar, 2);
  EXPECT_EQ(session.curdir, 1);
  EXPECT_EQ(session.selvar, 2);
  EXPECT_EQ(session.seldir, 2);
}

TEST(StartPair, StaysWhereNoVariableHasStructure1) {
  Session session = structureSample();
  session.hasmodel = true;
  session.curvar = 3;
  session.curdir = 2;
  session.use1({4, 1}) = 1;
  EXPECT_EQ(startPair(session), std::nullopt);
  EXPECT_EQ(session.curvar, 3);
  EXPECT_EQ(session.curdir, 2);
  EXPECT_EQ(session.selvar, 0);
}

TEST(StartPair, FaultsOnAFlagThatIsAText) {
  Session session = structureSample();
  session.hasmodel = true;
  session.use1({1, 1}) = Cell::ofText("yes");
  EXPECT_THROW(startPair(session), Fault);
}

TEST(StartPair, FaultsBehindTheTables) {
  Session session = structureSample();
  session.hasmodel = true;
  session.nvar = 2000000000;
  EXPECT_THROW(startPair(session), Fault);
}

TEST(ClassRow, ShowsNumbersInTheirGeneralForm) {
  Session session = structureSample();
  session.hlag.set({2, 1}, 2, 94.2307076789621);
  session.gam.set({2, 1}, 2, -1e-05);
  session.npairs.set({2, 1}, 2, 0.1F);
  const ClassRow row = classRow(session, {2, 1}, 2);
  EXPECT_EQ(row.caption, "    Class  2");
  EXPECT_EQ(row.h, "94.2307076789621");
  EXPECT_EQ(row.gamma, "-1E-05");
  EXPECT_EQ(row.pairs, "0.1");
}

TEST(ClassRow, ShowsATextAsItStood) {
  Session session = structureSample();
  session.hlag.set({1, 1}, 1, Cell::ofText("n.a."));
  EXPECT_EQ(classRow(session, {1, 1}, 1).h, "n.a.");
  EXPECT_THROW(classRow(session, {1, 1}, 4), Fault);
}

TEST(DirectionEntry, NamesTheDirection) {
  Session session = structureSample();
  session.dirname(1) = "0;0";
  session.dirname(12) = "45;0";
  EXPECT_EQ(directionEntry(session, 1), "Direction  1  0;0");
  EXPECT_EQ(directionEntry(session, 12), "Direction  12  45;0");
  EXPECT_THROW(directionEntry(session, 22), Fault);
}

}  // namespace
}  // namespace zevfit
