#include <gtest/gtest.h>
#include <ostream>

#include "plot/drawing/window_key.h"
#include "session/fault.h"

namespace zevfit {
namespace {

TEST(WindowCaption, TellsThePairAndBothNames) {
  Session session;
  session.varname(3) = "Lead";
  session.dirname(2) = "45 0 North East";
  EXPECT_EQ(windowCaption(session, {3, 2}), "03,02  Variable: Lead  Direction: 45 0 North East");
}

TEST(WindowCaption, HasTwoDigitsForEachSubscript) {
  Session session;
  session.varname(41) = "Sum";
  session.dirname(10) = "D10";
  EXPECT_EQ(windowCaption(session, {41, 10}), "41,10  Variable: Sum  Direction: D10");
}

TEST(WindowCaption, KeepsNamesAsTheyAre) {
  Session session;
  session.varname(1) = " Zn 07,08 ";
  EXPECT_EQ(windowCaption(session, {1, 1}), "01,01  Variable:  Zn 07,08   Direction: ");
}

TEST(WindowCaption, HasNoPairOutsideTheTables) {
  const Session session;
  EXPECT_THROW(windowCaption(session, {42, 1}), Fault);
  EXPECT_THROW(windowCaption(session, {1, 22}), Fault);
}

struct KeyCase {
  std::string_view caption;
  Pair pair;
};
std::ostream& operator<<(std::ostream& out, const KeyCase& row) {
  return out << '"' << row.caption << '"';
}

class WindowKeyOf : public testing::TestWithParam<KeyCase> {};

TEST_P(WindowKeyOf, IsInItsFirstFiveCharacters) {
  EXPECT_EQ(windowKey(GetParam().caption), GetParam().pair);
}

INSTANTIATE_TEST_SUITE_P(Captions, WindowKeyOf,
                         testing::Values(KeyCase{"03,02  Variable: Lead  Direction: N", {3, 2}},
                                         KeyCase{"41,21", {41, 21}},
                                         // Names do not take part.
                                         KeyCase{"01,02  Variable: 17,18  Direction: 19", {1, 2}},
                                         KeyCase{"  07,08  Variable: a  Direction: b  ", {7, 8}},
                                         KeyCase{"5 ,6 ", {5, 6}}, KeyCase{"12345", {12, 45}},
                                         KeyCase{"1x,2x", {1, 2}}, KeyCase{"1,02", {1, 2}},
                                         KeyCase{"01,", {1, 0}}, KeyCase{"01", {1, 0}},
                                         KeyCase{"9", {9, 0}}, KeyCase{"", {0, 0}},
                                         KeyCase{"     ", {0, 0}}, KeyCase{"Formod", {0, 0}},
                                         KeyCase{"x1,02", {0, 2}}, KeyCase{"01;xy", {1, 0}},
                                         KeyCase{"-1,-2", {-1, -2}}, KeyCase{".9,.9", {0, 0}},
                                         KeyCase{"1e,2E", {1, 2}}));

TEST(WindowKey, ReadsBackEveryCaption) {
  Session session;
  for (std::int64_t variable = 0; variable < kVariableSlots; ++variable) {
    for (std::int64_t direction = 0; direction < kDirectionSlots; ++direction) {
      const Pair pair{variable, direction};
      EXPECT_EQ(windowKey(windowCaption(session, pair)), pair);
    }
  }
}

}  // namespace
}  // namespace zevfit
