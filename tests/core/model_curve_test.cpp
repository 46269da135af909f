#include "model/model_curve.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "tests/support/fit_fixture.h"
#include "tests/support/model_lines.h"

namespace zevfit {
namespace {

/// Samples the pair under work up to 100, so that sample i lies at distance i.
class ModelCurve : public testing::Test, protected FitFixture {
 protected:
  void sample(double distanceend = 100) { modelcurve(fit, kPair, distanceend); }
  double at(int i) const { return session.curvegam(i); }

  void give(Line structure, const char* letter, double sill, double range) {
    setStructure(session, kPair, structure, letter, sill, range);
  }
  void giveNugget(double nugget) { setNugget(session, kPair, nugget); }
  void expectAll(double value) const {
    for (int i = 1; i <= 100; ++i) ASSERT_DOUBLE_EQ(at(i), value) << i;
  }
};

struct CurveRow {
  const char* letter;
  double sill, range;
  int h;
  double value;
};

constexpr CurveRow kCurveRows[] = {
    {"E", 2, 30, 10, 1.2642411176571153},  // 2 (1 - 1/e)
    {"E", 2, 30, 30, 1.900425863264272},   // 2 (1 - 1/e^3): 95 % at the range
    {"E", 2, 30, 60, 1.9950424956466672},  // 2 (1 - 1/e^6)
    {"G", 2, 10, 10, 1.900425863264272},   // 2 (1 - 1/e^3)
    {"G", 2, 10, 5, 1.0552668945179706},   // 2 (1 - e^-0.75)
    {"G", 2, 10, 1, 0.05910893290298366},  // 2 (1 - e^-0.03)
    {"S", 2, 40, 10, 0.734375},            // t = 1/4: 2 (0.375 - 0.0078125)
    {"S", 2, 40, 20, 1.375},               // t = 1/2: 2 (0.75 - 0.0625)
    {"S", 2, 40, 40, 2},                   // exactly, at the range
    {"S", 2, 40, 41, 2},
    {"S", 2, 40, 100, 2},
    {"P", 7, 0.5, 4, 2},  // the sill is no factor
    {"P", 7, 0.5, 100, 10},
    {"P", 0, 1.5, 4, 8},
    {"P", 0, 2, 9, 81},  // a parabola
};

TEST_F(ModelCurve, TheNuggetHasNoLetter) {
  giveNugget(0.5);
  for (const char* letter : {"P", "S", ""}) {
    cell(&Session::model0) = letter;
    sample();
    expectAll(0.5);
  }
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(ModelCurve, FollowsTheFormOfEachLetterInEveryStructure) {
  for (const CurveRow& row : kCurveRows)
    for (const Line structure : kStructures) {
      SCOPED_TRACE(std::string(row.letter) + " at " + std::to_string(row.h) + " in structure " +
                   std::to_string(indexOf(structure)));
      resetFitState(session);
      give(structure, row.letter, row.sill, row.range);
      sample();
      EXPECT_DOUBLE_EQ(at(row.h), row.value);
    }
  EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(ModelCurve, ReachesTheSphericalSillExactlyAtTheRange) {
  give(Line::first, "S", 0.7, 40);
  sample();
  EXPECT_EQ(at(40), 0.7);
  EXPECT_EQ(at(41), 0.7);
  EXPECT_LT(at(39), 0.7);
}

TEST_F(ModelCurve, NestsTheTickedLines) {
  giveNugget(0.5);
  give(Line::first, "E", 2, 30);
  give(Line::second, "S", 3, 40);
  give(Line::third, "P", 9, 0.5);
  sample();
  // 0.5 + 2 (1 - e^-1.6) + 3 (0.6 - 0.032) + 4, at 16: 2 - 2 * 0.20189651799465538
  EXPECT_DOUBLE_EQ(at(16), 0.5 + 1.5962069640106892 + 1.704 + 4);
  session.use3(kPair) = 0;
  cell(&Session::use1) = 0;
  sample();
  EXPECT_DOUBLE_EQ(at(16), 0.5 + 1.704);
}

TEST_F(ModelCurve, SamplesAHundredDistancesUpToTheEnd) {
  sample(50);
  EXPECT_EQ(session.curveh(1), 0.5);
  EXPECT_EQ(session.curveh(2), 1);
  EXPECT_EQ(session.curveh(100), 50);
  sample(250);
  EXPECT_EQ(session.curveh(1), 2.5);
  EXPECT_EQ(session.curveh(100), 250);
}

TEST_F(ModelCurve, LeavesTheSlotsOfNoDistanceAlone) {
  session.curveh(0) = session.curvegam(0) = 77;
  for (auto& row : session.curverow) row(0) = 77;
  giveNugget(1);
  for (const Line structure : kStructures) give(structure, "E", 1, 10);
  sample();
  EXPECT_EQ(session.curveh(0), 77);
  EXPECT_EQ(session.curvegam(0), 77);
  for (const auto& row : session.curverow) EXPECT_EQ(row(0), 77);
}

TEST_F(ModelCurve, IsZeroWithoutATickedLine) {
  for (auto& row : session.curverow) row.fill(5);
  session.curvegam.fill(5);
  sample();
  expectAll(0);
}

TEST_F(ModelCurve, ShowsANuggetFromTheFirstPointOn) {
  giveNugget(1.25);
  sample();
  expectAll(1.25);
}

TEST_F(ModelCurve, MakesItsPairTheCurrentOne) {
  session.setCurrent({1, 1});
  cell(&Session::use0) = 1;
  cell(&Session::c0) = 9;
  sample();
  EXPECT_EQ(session.current(), kPair);
  expectAll(0);
}

TEST_F(ModelCurve, HasNoUseForTheTopOfTheAxis) {
  give(Line::first, "E", 2, 30);
  cell(&Session::ymax) = 0.001;
  sample();
  EXPECT_DOUBLE_EQ(at(10), 1.2642411176571153);
}

TEST_F(ModelCurve, StoresTheSmallestRangeForNoneAndNegativeOnes) {
  cell(&Session::a1) = 0;
  cell(&Session::a2) = -3;
  cell(&Session::a3) = 1e-06;
  cell(&Session::model2) = "E";
  sample();
  EXPECT_EQ(cell(&Session::a1).toText(), "1E-05");
  EXPECT_EQ(number(&Session::a2), 1e-05);
  EXPECT_EQ(number(&Session::a3), 1e-06);
}

TEST_F(ModelCurve, MakesASecondNuggetOfTheSmallestRange) {
  for (const char* letter : {"S", "E", "G"}) {
    give(Line::first, letter, 2.5, 0);
    sample();
    expectAll(2.5);
  }
}

TEST_F(ModelCurve, CollapsesOnAnAxisWithoutExtent) {
  for (const char* letter : {"E", "S", "G", "P"}) {
    give(Line::first, letter, 2, 0.5);
    sample(0);
    EXPECT_EQ(session.curveh(100), 0);
    expectAll(0);
  }
}

// The row of structure 1 after an exponential one of sill 2 and range 30.
constexpr double kStale = 1.2642411176571153;

TEST_F(ModelCurve, AddsWhatTheRowOfALineWithoutAFormHeldBefore) {
  give(Line::first, "-", 4, 10);
  sample();
  expectAll(0);
  give(Line::first, "E", 2, 30);
  sample();
  for (const char* letter : {"-", "", "X", "e"}) {
    give(Line::first, letter, 4, 10);
    sample();
    EXPECT_DOUBLE_EQ(at(10), kStale) << letter;
  }
}

TEST_F(ModelCurve, NeitherComputesNorChecksALineWhoseFlagIsNotOne) {
  giveNugget(3);
  give(Line::first, "E", 2, 30);
  sample();
  cell(&Session::use0) = cell(&Session::use1) = 2;
  cell(&Session::c0) = 100;
  cell(&Session::model1) = "P";
  cell(&Session::a1) = 50;
  sample();
  EXPECT_TRUE(dialogs.shown.empty());
  EXPECT_DOUBLE_EQ(at(10), 2 * 3 + 2 * kStale) << "the flag still is a factor";
  cell(&Session::use0) = cell(&Session::use1) = 0;
  sample();
  expectAll(0);
}

TEST_F(ModelCurve, TakesTheCubeWhateverTheCaptionSays) {
  panel.setCaption(Caption::label10, "C2*(3/2*(h/a2) -1/2*(h/a2)^2)");
  give(Line::second, "S", 2, 40);
  sample();
  EXPECT_EQ(at(20), 1.375);
}

struct TextRow {
  const char* name;
  PairTable<Cell> Session::*table;
  bool fails;
};

// Structure 1 is exponential, structure 2 a power, structure 3 not part of the model.
TEST_F(ModelCurve, FailsOnATextThatItNeedsAsANumber) {
  const TextRow rows[] = {
      {"use0", &Session::use0, true}, {"use1", &Session::use1, true},
      {"use2", &Session::use2, true}, {"c0", &Session::c0, true},
      {"c1", &Session::c1, true},     {"c2", &Session::c2, false},
      {"c3", &Session::c3, false},    {"a1", &Session::a1, true},
      {"a2", &Session::a2, true},     {"a3", &Session::a3, true},
  };
  for (const TextRow& row : rows) {
    resetFitState(session);
    giveNugget(1);
    give(Line::first, "E", 2, 30);
    give(Line::second, "P", 1, 0.5);
    cell(row.table) = Cell::ofText("n/a");
    if (row.fails)
      EXPECT_THROW(sample(), Fault) << row.name;
    else
      EXPECT_NO_THROW(sample()) << row.name;
    EXPECT_TRUE(cell(row.table).isText()) << row.name;
  }
}

TEST_F(ModelCurve, FailsBeyondTheNumbers) {
  giveNugget(1.7e+308);
  give(Line::first, "S", 1.7e+308, 1);
  EXPECT_THROW(sample(), Fault) << "the sum";
  resetFitState(session);
  give(Line::first, "P", 0, 2);
  EXPECT_THROW(sample(1e+300), Fault) << "a power";
  for (int i = 0; i <= 100; ++i) EXPECT_TRUE(std::isfinite(session.curverow[1](i))) << i;
}

}  // namespace
}  // namespace zevfit
