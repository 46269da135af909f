// The checks of the test of coregionalization, case by case.
#include "coreg/crosstest.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "session/fault.h"
#include "session/line.h"
#include "tests/support/coreg_sample.h"

namespace zevfit::test {
namespace {

using Lines = std::vector<std::string>;

/// The verdict in a word or, of a detail tree, the texts of its faults, one behind the other.
std::string verdict(const Session& session, const CrossChoice& choice = kSampleChoice) {
  const std::vector<TestNode> nodes = crosstest(session, choice);
  if (nodes.size() == 4) return "passed";
  if (nodes.size() == 7) return nodes.back().text;
  std::string faults;
  for (std::size_t i = 13; i < nodes.size(); ++i) faults += nodes[i].text;
  return faults;
}

const std::string kNone = "No structures detected";
const std::string kNumber = "Different number of structures";
const std::string kModels = "Different models";

std::string inAllDirections(const std::string& text) { return text + text + text; }

TEST(Crosstest, OneNuggetCountsAsAStructure) {
  Session session = coregSession();
  EXPECT_EQ(verdict(session), kNone);
  tick(session, Line::nugget, cross, mainDirection, 1);
  EXPECT_EQ(verdict(session), kNumber);
  setEverywhere(session, Line::nugget, "", {1, 1, 1});
  EXPECT_EQ(verdict(session), "passed");
}

TEST(Crosstest, ALineIsOnInAllNineModelsOrInNone) {
  for (const Line which : kLines)
    for (const VariableSlot v : {cross, primary, secondary})
      for (const DirectionSlot d : {mainDirection, minorDirection1, minorDirection2})
        for (const double use : {0.0, 1.0}) {
          Session session = coregSession();
          setEverywhere(session, which == Line::second ? Line::first : Line::second, "S", {1, 1, 1},
                        10);
          if (use == 0) setEverywhere(session, which, "S", {1, 1, 1}, 10);
          EXPECT_EQ(verdict(session), "passed");
          tick(session, which, v, d, use);
          EXPECT_EQ(verdict(session), kNumber) << indexOf(which) << v << d << use;
        }
}

TEST(Crosstest, LinesAreComparedOneByOneAndNotCounted) {
  Session session = coregSession();
  setEverywhere(session, Line::nugget, "", {1, 1, 1});
  setEverywhere(session, Line::first, "S", {1, 1, 1}, 10);
  setLine(session, Line::first, primary, minorDirection1, {0, "S", 1, 10});
  setLine(session, Line::second, primary, minorDirection1, {1, "S", 1, 10});
  EXPECT_EQ(verdict(session), kNumber);
}

TEST(Crosstest, ALineTickedInBothVariablesButNotInTheCrossOneIsNoQuestionOfSills) {
  Session session = goodModels();
  for (const DirectionSlot d : {mainDirection, minorDirection1, minorDirection2}) {
    setLine(session, Line::second, primary, d, {1, "S", -1, 10});
    setLine(session, Line::second, secondary, d, {1, "S", 1, 10});
  }
  EXPECT_EQ(verdict(session), kNumber);
}

TEST(Crosstest, TheNumberOfStructuresComesBeforeModels) {
  Session session = goodModels();
  session.model1({1, 1}) = "E";
  tick(session, Line::third, cross, mainDirection, 0);
  EXPECT_EQ(verdict(session), kNumber);
}

TEST(Crosstest, ALetterIsTheSameInAllNineModels) {
  for (const Line which : kStructures)
    for (const VariableSlot v : {cross, primary, secondary})
      for (const DirectionSlot d : {mainDirection, minorDirection1, minorDirection2})
        for (const char* letter : {"E", "s", "S ", ""}) {
          Session session = coregSession();
          setEverywhere(session, which, "S", {1, 1, 1}, 10);
          setLine(session, which, v, d, {1, letter, 1, 10});
          EXPECT_EQ(verdict(session), kModels) << indexOf(which) << v << d << letter;
        }
}

TEST(Crosstest, LettersOfALineThatIsOffDoNotCount) {
  Session session = goodModels();
  setLine(session, Line::second, primary, mainDirection, {0, "S", 1, 10});
  setLine(session, Line::second, cross, minorDirection1, {0, "G", 1, 20});
  EXPECT_EQ(verdict(session), "passed");
}

TEST(Crosstest, ModelsComeBeforeRangesAndSills) {
  Session session = goodModels();
  setLine(session, Line::first, cross, mainDirection, {1, "G", 50, 3});
  EXPECT_EQ(verdict(session), kModels);
}

TEST(Crosstest, RangesAgreeWithinADirectionAndMayDifferBetweenThem) {
  Session session = goodModels();
  for (const VariableSlot v : {cross, primary, secondary})
    setLine(session, Line::first, v, minorDirection1, {1, "S", 1, 40});
  EXPECT_EQ(verdict(session), "passed");
  for (const VariableSlot v : {cross, primary, secondary}) {
    Session other = session;
    setLine(other, Line::first, v, minorDirection1, {1, "S", 1, 41});
    EXPECT_EQ(verdict(other), " a 1") << v;
  }
}

TEST(Crosstest, ARangeThatDiffersInItsLastDigitIsTold) {
  Session session = goodModels();
  setLine(session, Line::first, primary, minorDirection2,
          {1, "S", 4, std::nextafter(100.0, 200.0)});
  EXPECT_EQ(verdict(session), " a 1");
}

TEST(Crosstest, TheRangeOfALineThatIsOffDoesNotCount) {
  Session session = goodModels();
  setLine(session, Line::second, primary, mainDirection, {0, "-", 0, 77});
  EXPECT_EQ(verdict(session), "passed");
}

TEST(Crosstest, OneVariableThreeTimesInOneDirectionPasses) {
  Session session = coregSession();
  setLine(session, Line::first, {2, 3}, {1, "G", -0.1, 7});
  setLine(session, Line::third, {2, 3}, {1, "P", 1e300, 1.1});
  EXPECT_EQ(verdict(session, {1, 1, 1, 2, 2, 2}), "passed");
  EXPECT_EQ(verdict(session, {1, 1, 1, 2, 2, 1}), kNumber);
  EXPECT_EQ(verdict(session, {0, 0, 0, 0, 0, 0}), kNone);
}

TEST(Crosstest, TheThreeVariablesAreNotTakenForEachOther) {
  const Session session = goodModels();
  // With lead as the cross variable structure 1 has 4 * 4 over 9 * 2 or 2 * 9: it passes. With zinc
  // it has 9 * 9 over 2 * 4 = 8, whose root is 2.828; the nugget has 1 * 1 over 0.5, root 0.707.
  EXPECT_EQ(verdict(session, {1, 2, 0, 1, 2, 0}), inAllDirections(" |C 0xy|  =< 0.71"));
  EXPECT_EQ(verdict(session, {0, 2, 1, 1, 2, 0}),
            inAllDirections(" |C 0xy|  =< 0.71 |C 1xy|  =< 2.83"));
}

struct SillRow {
  const char* name;
  double cross, primary, secondary;
  const char* bound;  ///< nothing where the sills pass
};

void PrintTo(const SillRow& row, std::ostream* out) { *out << row.name; }

/// A one and noughts.
const char* const k1e300 =
    "1000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000"
    "0000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000"
    "0000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000000"
    "0000000000000000000.0";

const double kBeyond6 = std::nextafter(6.0, 7.0);

const SillRow kSillRows[] = {
    {"Under", 5, 4, 9, nullptr},
    {"AtTheGeometricMean", 6, 4, 9, nullptr},
    // Prints as its bound.
    {"AnyExcessOverTheMean", kBeyond6, 4, 9, "6.0"},
    {"Over", 13, 12.5, 12.5, "12.5"},
    {"NegativeCross", -5, 4, 9, nullptr},
    {"NegativeCrossAtTheMean", -6, 4, 9, nullptr},
    {"NegativeCrossBeyond", -6.5, 4, 9, "6.0"},
    {"NegativeProduct", 0, -4, 9, "6.0"},
    {"NegativeProductOfTheOther", 1, 4, -9, "6.0"},
    {"TwoNegativeSills", 6, -4, -9, nullptr},
    {"NoSills", 0, 0, 0, nullptr},
    {"NoProduct", 0.5, 0, 9, "0.0"},
    {"CrossOfNothing", 0, 4, 9, nullptr},
    // sqrt(0.0225) = 0.15, sqrt(0.5) = 0.7071, sqrt(2e13) = 4472135.9549996: seven places are no
    // limit, and a place in front of the point is always filled.
    {"TwoDecimals", 1, 0.09, 0.25, "0.15"},
    {"Rounded", 1, 0.5, 1, "0.71"},
    {"ManyDigits", 5e6, 2e6, 1e7, "4472135.95"},
    {"MoreDigitsThanPlaces", 3e9, 1e9, 4e9, "2000000000.0"},
    {"RoundedUpToOneDecimal", 5, 3.996, 3.996, "4.0"},
    // Squares of 1e-300 are 0 in a double.
    {"Small", 1e-300, 1e-300, 1e-300, nullptr},
    {"SmallSquareIsNothing", 1e-200, 1e-300, 1e-300, nullptr},
    {"SmallSquareUnderSomething", 1e-200, 1e-150, 1e-150, nullptr},
    {"SmallProductIsNothing", 1e-150, 1e-300, 1e-300, "0.0"},
    {"NegativeProductTooSmall", 0, -1e-300, 1e-300, nullptr},
    // Their products overflow.
    {"Large", 1e300, 1e300, 1e300, nullptr},
    {"LargeNegative", -1e300, 1e300, 1e300, nullptr},
    {"LargeCross", 1e300, 4, 9, "6.0"},
    {"LargeCrossUnderAProduct", 1e300, 1e301, 1e300, nullptr},
    {"LargeProduct", 1, 1e300, 1e300, nullptr},
    {"LargeNegativeProduct", 1, -1e300, 1e300, k1e300},
    {"LargestNumber", 1.7976931348623157e308, 1.7976931348623157e308, 1.7976931348623157e308,
     nullptr},
};

class CrosstestSills : public testing::TestWithParam<SillRow> {};

/// The same sills on the nugget, a structure and a power structure, which all are tested alike.
TEST_P(CrosstestSills, AreComparedByTheirSquare) {
  const SillRow& row = GetParam();
  for (const auto& [which, letter] :
       {std::pair{Line::nugget, ""}, {Line::second, "E"}, {Line::third, "P"}}) {
    Session session = coregSession();
    setEverywhere(session, which, letter, {row.cross, row.primary, row.secondary}, 1.5);
    const std::string fault = std::string(" |C ") + std::to_string(indexOf(which)) + "xy|  =< " +
                              (row.bound ? row.bound : "");
    EXPECT_EQ(verdict(session), row.bound ? inAllDirections(fault) : "passed") << indexOf(which);
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, CrosstestSills, testing::ValuesIn(kSillRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Crosstest, AFaultOfTheNuggetInTheMainDirectionStandsUnderItsSills) {
  Session session = goodModels();
  setLine(session, Line::nugget, cross, mainDirection, {1, "", 2, 0});
  EXPECT_EQ(treeOf(session).back(), "cs0 0 < cs0:  |C 0xy|  =< 1.0, 2");
}

TEST(Crosstest, TheSillsOfALineThatIsOffDoNotCount) {
  Session session = goodModels();
  setLine(session, Line::second, cross, mainDirection, {0, "-", 1000, 1});
  EXPECT_EQ(verdict(session), "passed");
}

TEST(Crosstest, ChangesNothingAndStartsAnewEachTime) {
  Session session = goodModels();
  setLine(session, Line::first, cross, mainDirection, {1, "S", 50, 3});
  const Lines first = treeOf(session);
  EXPECT_EQ(treeOf(session), first);
  setLine(session, Line::first, cross, mainDirection, {1, "S", 2, 100});
  EXPECT_EQ(verdict(session), "passed");
}

TEST(Crosstest, DirectionsAreShownByNameWhateverTheyAre) {
  Session session = coregSession();
  session.dirname(2) = "N (30\xB0)";
  session.dirname(3) = "";
  const Lines tree = treeOf(session);
  EXPECT_EQ(tree[1], "d0 < R: Main Direction:(N (30\xB0)), 3");
  EXPECT_EQ(tree[2], "d1 < R: Minor Direction 1:(), 3");
}

TEST(Crosstest, NoChoiceStandsForAPairWithoutModels) {
  const Session session = goodModels();
  EXPECT_EQ(verdict(session, {-1, -1, -1, -1, -1, -1}), kNone);
  EXPECT_EQ(treeOf(session, {-1, -1, -1, -1, -1, -1})[1], "d0 < R: Main Direction:(), 3");
  EXPECT_EQ(verdict(session, {-1, 1, 0, 1, 2, 0}), kNumber);
  EXPECT_EQ(verdict(session, {2, 1, 0, 1, 2, -1}), kNumber);
}

TEST(Crosstest, ThePositionsReachAsFarAsTheTables) {
  const Session session = goodModels();
  EXPECT_EQ(verdict(session, {40, 40, 40, 20, 20, 20}), kNone);
  for (const int position : {41, -2, INT_MAX, INT_MIN})
    for (int at = 0; at < 3; ++at) {
      CrossChoice choice = kSampleChoice;
      (at == 0 ? choice.cross : at == 1 ? choice.primary : choice.secondary) = position;
      EXPECT_THROW(crosstest(session, choice), Fault) << position << " " << at;
    }
  for (const int position : {21, -2, INT_MAX, INT_MIN})
    for (int at = 0; at < 3; ++at) {
      CrossChoice choice = kSampleChoice;
      (at == 0 ? choice.main : at == 1 ? choice.minor1 : choice.minor2) = position;
      EXPECT_THROW(crosstest(session, choice), Fault) << position << " " << at;
    }
}

TEST(Crosstest, ATextInPlaceOfANumberIsAFaultWhereItCounts) {
  Session session = goodModels();
  session.c2({1, 1}) = Cell::ofText("abc");
  session.a2({2, 3}) = Cell::ofText("abc");
  EXPECT_EQ(verdict(session), "passed") << "of a line that is off";
  for (const auto table : {&Session::c0, &Session::c1, &Session::a3, &Session::use0}) {
    Session faulty = session;
    (faulty.*table)({1, 1}) = Cell::ofText("abc");
    EXPECT_THROW(crosstest(faulty, kSampleChoice), Fault);
  }
}

}  // namespace
}  // namespace zevfit::test
