#include "session/structure_view.h"

#include <gtest/gtest.h>

#include <string>

#include "session/fault.h"
#include "tests/support/model_lines.h"
#include "tests/support/structure_sample.h"

namespace zevfit {
namespace {

TEST(CreateVariable, AddsSemivariancesAndVariances) {
  Session session = structureSample();
  tick(session, {2, 3});
  EXPECT_FALSE(createIn(session, "sum"));
  EXPECT_EQ(session.nvar, 4);
  EXPECT_EQ(session.nvarfile, 3);
  EXPECT_EQ(session.varname(4), "sum");
  EXPECT_EQ(session.variance(4).number(), 5);
  for (int d = 1; d <= 2; ++d) {
    for (int c = 1; c <= 2; ++c) {
      const int place = 10 * d + c;
      SCOPED_TRACE(place);
      EXPECT_EQ(session.gam({4, d}, c), (200 + place) + (300 + place));
      // Distances are those of the last one added, pairs those of the first variable.
      EXPECT_EQ(session.hlag({4, d}, c).number(), 10 * (300 + place));
      EXPECT_EQ(session.npairs({4, d}, c), static_cast<float>(100 * (100 + place)));
    }
    EXPECT_EQ(session.hmax({4, d}), 3000 + d);
    EXPECT_EQ(session.gmax({4, d}), 0);
  }
}

TEST(CreateVariable, AddsDerivedVariablesToo) {
  Session session = structureSample();
  tick(session, {2, 3});
  EXPECT_FALSE(createIn(session, "sum"));
  tick(session, {1, 4});
  EXPECT_FALSE(createIn(session, "all"));
  EXPECT_EQ(session.gam({5, 1}, 2), 112 + 212 + 312);
  EXPECT_EQ(session.hlag({5, 1}, 2).number(), 3120);
  EXPECT_EQ(session.variance(5).number(), 6);
}

TEST(CreateVariable, KeepsTheTicks) {
  Session session = structureSample();
  tick(session, {2, 3});
  EXPECT_FALSE(createIn(session, "sum"));
  EXPECT_FALSE(session.addflag(1));
  EXPECT_TRUE(session.addflag(2));
  EXPECT_TRUE(session.addflag(3));
  EXPECT_FALSE(session.addflag(4));
}

TEST(CreateVariable, TakesDistancesThatAreTexts) {
  Session session = structureSample();
  session.hlag.set({3, 1}, 2, Cell::ofText("n.a."));
  tick(session, {2, 3});
  EXPECT_FALSE(createIn(session, "sum"));
  EXPECT_EQ(session.hlag({4, 1}, 2).toText(), "n.a.");
}

TEST(CreateVariable, TakesTheLimitsOfTheOnlyHigherDirections) {
  Session session = structureSample();
  const double top[3][2] = {{5, 7}, {6, 9}, {9, 8}};
  const double bottom[3][2] = {{0, -1}, {-1, -3}, {-2, -4}};
  for (int v = 1; v <= 3; ++v) {
    for (int d = 1; d <= 2; ++d) {
      session.ymax({v, d}) = top[v - 1][d - 1];
      session.ymin({v, d}) = bottom[v - 1][d - 1];
    }
  }
  tick(session, {1, 2, 3});
  EXPECT_FALSE(createIn(session, "sum"));
  // Tops in the order of the visit: 5, 7, then 6 is below the 7 already seen, 9, then 9 and 8 do
  // not exceed 9. So direction 1 keeps the 5 of variable 1, direction 2 ends with 9 of variable 2.
  EXPECT_EQ(session.ymax({4, 1}), 5);
  EXPECT_EQ(session.ymax0({4, 1}), 5);
  EXPECT_EQ(session.ymax({4, 2}), 9);
  EXPECT_EQ(session.ymax0({4, 2}), 9);
  // Bottoms: 0, -1, then -1 is not below -1, -3, then -2 is not below -3, -4.
  EXPECT_EQ(session.ymin({4, 1}), 0);
  EXPECT_EQ(session.ymin0({4, 1}), 0);
  EXPECT_EQ(session.ymin({4, 2}), -4);
  EXPECT_EQ(session.ymin0({4, 2}), -4);
}

TEST(CreateVariable, LeavesLimitsThatNoDirectionExceeds) {
  Session session = structureSample();
  for (int v = 1; v <= 3; ++v) {
    session.ymax({v, 1}) = 10;
    session.ymax({v, 2}) = 4;
    session.ymin({v, 1}) = -10;
    session.ymin({v, 2}) = -4;
  }
  session.ymax({4, 2}) = 77;
  session.ymax0({4, 2}) = 78;
  session.ymin({4, 2}) = -77;
  session.ymin0({4, 2}) = -78;
  tick(session, {2, 3});
  EXPECT_FALSE(createIn(session, "sum"));
  EXPECT_EQ(session.ymax({4, 1}), 10);
  EXPECT_EQ(session.ymin({4, 1}), -10);
  EXPECT_EQ(session.ymax({4, 2}), 77);
  EXPECT_EQ(session.ymax0({4, 2}), 78);
  EXPECT_EQ(session.ymin({4, 2}), -77);
  EXPECT_EQ(session.ymin0({4, 2}), -78);
}

TEST(CreateVariable, StartsItsLimitsBesideZero) {
  Session session = structureSample();
  for (int v = 1; v <= 3; ++v) {
    session.ymax({v, 1}) = -1e-201;  // above the first upper bound
    session.ymax({v, 2}) = 0;
    session.ymin({v, 1}) = 1e+201;  // above the first lower bound
    session.ymin({v, 2}) = 1e+199;
  }
  session.ymin({4, 1}) = 5;
  tick(session, {1, 2});
  EXPECT_FALSE(createIn(session, "sum"));
  EXPECT_EQ(session.ymax({4, 1}), -1e-201);
  EXPECT_EQ(session.ymax({4, 2}), 0);
  EXPECT_EQ(session.ymin({4, 1}), 5);
  EXPECT_EQ(session.ymin({4, 2}), 1e+199);
}

TEST(CreateVariable, LeavesTheSmallestSemivarianceAndTheFitState) {
  Session session = structureSample();
  constexpr Pair kSum{4, 1};
  session.gmin(kSum) = 42;
  setStructure(session, kSum, Line::first, "S", 3, 90);
  session.ctotal(kSum) = 3;
  session.xmax(kSum) = 500;
  session.showsill(kSum) = false;
  session.gmin({1, 1}) = -5;
  tick(session, {1, 2});
  EXPECT_FALSE(createIn(session, "sum"));
  EXPECT_EQ(session.gmin(kSum), 42);
  EXPECT_EQ(session.use1(kSum).number(), 1);
  EXPECT_EQ(session.model1(kSum), "S");
  EXPECT_EQ(session.c1(kSum).number(), 3);
  EXPECT_EQ(session.a1(kSum).number(), 90);
  EXPECT_EQ(session.ctotal(kSum), 3);
  EXPECT_EQ(session.xmax(kSum), 500);
  EXPECT_FALSE(session.showsill(kSum));
}

TEST(CreateVariable, ClearsWhatItsSlotHeld) {
  Session session = structureSample();
  for (int d = 1; d <= 2; ++d) {
    session.gam.set({4, d}, 1, 1e6);
    session.hlag.set({4, d}, 1, Cell::ofText("old"));
    session.npairs.set({4, d}, 1, 1e6F);
    session.gmax({4, d}) = 1e6;
    session.hmax({4, d}) = 1e6;
  }
  session.variance(4) = Cell::ofText("old");
  tick(session, {1, 2});
  EXPECT_FALSE(createIn(session, "sum"));
  EXPECT_EQ(session.gam({4, 1}, 1), 111 + 211);
  EXPECT_EQ(session.hlag({4, 2}, 1).number(), 2210);
  EXPECT_EQ(session.npairs({4, 1}, 1), 11100.0F);
  EXPECT_EQ(session.gmax({4, 2}), 0);
  EXPECT_EQ(session.hmax({4, 2}), 2002);
  EXPECT_EQ(session.variance(4).number(), 3);
}

TEST(CreateVariable, ClassesThatNobodyWroteAreZero) {
  Session session = structureSample();
  session.hlag.clear({3, 1});
  session.gam.clear({3, 1});
  session.npairs.clear({1, 1});
  tick(session, {2, 3});
  EXPECT_FALSE(createIn(session, "sum"));
  EXPECT_EQ(session.gam({4, 1}, 1), 211);
  EXPECT_EQ(session.hlag({4, 1}, 1).number(), 0);
  EXPECT_EQ(session.npairs({4, 1}, 1), 0);
}

TEST(CreateVariable, DependsOnTheClassesWrittenNotOnThoseClaimed) {
  Session session = structureSample();
  session.nclass = 2000000000;
  tick(session, {1, 2});
  EXPECT_FALSE(createIn(session, "sum"));
  EXPECT_EQ(session.gam.written({4, 1}).size(), 3U);
}

TEST(CreateVariable, UsesSlot41AndRefusesMore) {
  Session session = structureSample();
  tick(session, {1, 2});
  while (session.nvar < 41) {
    ASSERT_FALSE(createIn(session, "v" + std::to_string(session.nvar + 1)));
  }
  EXPECT_EQ(session.varname(41), "v41");
  EXPECT_EQ(session.gam({41, 2}, 2), 122 + 222);
  expectRefused(createIn(session, "v42"), "Cannot add more variables!", true);
  EXPECT_EQ(session.nvar, 41);
  expectRefused(createIn(session, "v41"),
                " Name  (v41)  already exists. Please choose another one.", true);
}

TEST(CreateVariable, RefusesAVarianceThatIsAText) {
  Session session = structureSample();
  session.variance(2) = Cell::ofText("n.a.");
  tick(session, {2, 3});
  expectRefused(createIn(session, "sum"), "Illegal value for variance of lead: n.a.!", true);
  EXPECT_EQ(session.nvar, 3);
  EXPECT_EQ(session.varname(4), "");
  tick(session, {1, 3});
  EXPECT_FALSE(createIn(session, "sum")) << "it takes no part";
}

TEST(CreateVariable, RefusesASumBeyondAllNumbers) {
  Session session = structureSample();
  session.dirname(2) = " 90;0 ";
  for (const int v : {1, 2}) session.gam.set({v, 2}, 2, v == 1 ? 1e308 : 1.5e308);
  tick(session, {1, 2});
  expectRefused(createIn(session, "sum"),
                "Illegal value for Gamma(h) of Class 2 in Direction (90;0) of lead: 1.5E+308!",
                true);
  EXPECT_EQ(session.nvar, 3);
  EXPECT_EQ(session.gam({4, 1}, 1), 0);
  session = structureSample();
  for (const int v : {1, 3}) session.variance(v) = 1e308;
  tick(session, {1, 2, 3});
  expectRefused(createIn(session, "sum"), "Illegal value for variance of copper: 1E+308!", true);
}

TEST(CreateVariable, EndsWhereCountsExceedTheTables) {
  Session session = structureSample();
  session.ndir = 2000000000;
  tick(session, {1, 2});
  EXPECT_THROW(createIn(session, "sum"), Fault);
  session.ndir = 2;
  session.nvar = 2000000000;
  expectRefused(createIn(session, "sum"), "Cannot add more variables!", true);
}

}  // namespace
}  // namespace zevfit
