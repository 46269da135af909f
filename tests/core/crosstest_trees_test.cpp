// The five verdicts, each with its whole tree. A line of a tree is "key < parent: text, picture";
// the pictures are 1 passed, 2 failed, 3 direction with a fault, 4 root.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/coreg_sample.h"

namespace zevfit::test {
namespace {

using Lines = std::vector<std::string>;

struct Row {
  const char* name;
  void (*change)(Session&);
  Lines tree;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.name; }

/// The root and the directions with their picture.
Lines top(const char* image) {
  return {"R < : Test Results, 4", std::string("d0 < R: Main Direction:(90;0), ") + image,
          std::string("d1 < R: Minor Direction 1:(45;0), ") + image,
          std::string("d2 < R: Minor Direction 2:(0;0), ") + image};
}

Lines operator+(Lines first, const Lines& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

Lines sameEverywhere(const std::string& text) {
  return {"es0 < d0: " + text, "es1 < d1: " + text, "es2 < d2: " + text};
}

const Lines kCounted = sameEverywhere("Number of structures, 1");
const Lines kRanges{"rs0 < es0: Ranges, 1", "rs1 < es1: Ranges, 1", "rs2 < es2: Ranges, 1"};
const Lines kSills{"cs0 < es0: Sills, 1", "cs1 < es1: Sills, 1", "cs2 < es2: Sills, 1"};

void allOff(Session& session) { session = coregSession(); }

void nothing(Session& /*session*/) {}

void oneFlagOff(Session& session) { tick(session, Line::third, secondary, minorDirection2, 0); }

void otherLetter(Session& session) { session.model1(pairOf(primary, minorDirection1)) = "E"; }

/// In direction 45;0 alone, where lead has another range of structure 3.
void otherRange(Session& session) {
  setLine(session, Line::third, primary, minorDirection1, {1, "P", 1, 1.25});
}

/// Nugget 3 * 3 = 9 over 1 * 1 in 90;0; structure 1 in 0;0: 6.5 * 6.5 = 42.25 over 4 * 9, whose
/// root is 6.
void otherSills(Session& session) {
  setLine(session, Line::nugget, cross, mainDirection, {1, "", 3, 0});
  setLine(session, Line::first, cross, minorDirection2, {1, "S", 6.5, 100});
}

/// In 90;0 all sills and both ranges, in 45;0 nothing, in 0;0 a range and a sill. Structure 1: 7 *
/// 7 over 4 * 9. Structure 3: 2 * 2 over 1 * 2, whose root is 1.414.
void muchWrong(Session& session) {
  setLine(session, Line::nugget, cross, mainDirection, {1, "", -1.5, 0});
  setLine(session, Line::first, cross, mainDirection, {1, "S", 7, 90});
  setLine(session, Line::third, cross, mainDirection, {1, "P", 2, 1.5});
  setLine(session, Line::third, secondary, mainDirection, {1, "P", 2, 1.75});
  setLine(session, Line::first, secondary, minorDirection2, {1, "S", 9, 101});
  setLine(session, Line::third, cross, minorDirection2, {1, "P", 2, 1.5});
}

const std::vector<Row> kRows{
    {"NoStructures", allOff, top("3") + sameEverywhere("No structures detected, 2")},
    {"NumberOfStructures", oneFlagOff,
     top("3") + sameEverywhere("Different number of structures, 2")},
    {"Models", otherLetter, top("3") + sameEverywhere("Different models, 2")},
    {"Passed", nothing, top("1")},
    {"DetailOfARange", otherRange,
     top("3") + kCounted +
         Lines{"rs0 < es0: Ranges, 1", "rs1 < es1: Different ranges, 2", "rs2 < es2: Ranges, 1"} +
         kSills + Lines{"rs1 3 < rs1:  a 3, 2"}},
    {"DetailOfSills", otherSills,
     top("3") + kCounted + kRanges +
         Lines{"cs0 < es0: Wrong sills, 2", "cs1 < es1: Sills, 1", "cs2 < es2: Wrong sills, 2",
               "cs0 0 < cs0:  |C 0xy|  =< 1.0, 2", "cs2 1 < cs2:  |C 1xy|  =< 6.0, 2"}},
    {"DetailOfBoth", muchWrong,
     top("3") + kCounted +
         Lines{"rs0 < es0: Different ranges, 2", "rs1 < es1: Ranges, 1",
               "rs2 < es2: Different ranges, 2", "cs0 < es0: Wrong sills, 2", "cs1 < es1: Sills, 1",
               "cs2 < es2: Wrong sills, 2", "cs0 0 < cs0:  |C 0xy|  =< 1.0, 2",
               "cs0 1 < cs0:  |C 1xy|  =< 6.0, 2", "cs0 3 < cs0:  |C 3xy|  =< 1.41, 2",
               "cs2 3 < cs2:  |C 3xy|  =< 1.0, 2", "rs0 1 < rs0:  a 1, 2", "rs0 3 < rs0:  a 3, 2",
               "rs2 1 < rs2:  a 1, 2"}},
};

class CrosstestTree : public testing::TestWithParam<Row> {};

TEST_P(CrosstestTree, HasItsNodesInOrder) {
  Session session = goodModels();
  GetParam().change(session);
  EXPECT_EQ(treeOf(session), GetParam().tree);
}

INSTANTIATE_TEST_SUITE_P(Verdicts, CrosstestTree, testing::ValuesIn(kRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(Crosstest, EveryNodeStandsBehindItsParentUnderAKeyOfItsOwn) {
  Session session = goodModels();
  muchWrong(session);
  Lines keys{""};
  for (const TestNode& node : crosstest(session, kSampleChoice)) {
    EXPECT_EQ(std::count(keys.begin(), keys.end(), node.parent), 1) << node.key;
    EXPECT_EQ(std::count(keys.begin(), keys.end(), node.key), 0) << node.key;
    keys.push_back(node.key);
  }
}

}  // namespace
}  // namespace zevfit::test
