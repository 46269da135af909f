// What showing a line does to its values is no change of the user's.
#include "model/settling.h"

#include <gtest/gtest.h>

#include "session/line.h"
#include "tests/support/model_lines.h"

namespace zevfit::test {
namespace {

constexpr Pair kPair{1, 1};

/// With lags up to 1600, so that a step of the range slider is 1, and an axis from 0 to 32.
Session sample(double nugget, double range) {
  Session session;
  session.hmax(kPair) = 1600;
  session.ymin(kPair) = 0;
  session.ymax(kPair) = 32;
  setNugget(session, kPair, nugget);
  setStructure(session, kPair, Line::first, "S", 1, range);
  return session;
}

TEST(Settling, TakesTheValuesOnWhichAShownLineSettles) {
  struct Row {
    const char* name;
    double inFile, shown;
    bool isTaken;
  };
  // 1 - 1e-05 / 32000 each with three decimals.
  const Row ranges[] = {
      {"the file's own", 700.4, 700.4, true}, {"the step below", 700.4, 700, true},
      {"the step above", 700.6, 701, true},   {"the step on the other side", 700.4, 701, false},
      {"a step more", 700, 701, false},       {"off the steps", 700, 700.4, false},
      {"a drawn 0", 0, 1e-05, true},          {"a drawn range below 0", -5, 1e-05, true},
      {"step 0, drawn", 0.4, 1e-05, true},    {"of no drawing", 700, 1e-05, false}};
  for (const Row& row : ranges) {
    Session file = sample(0.5, row.inFile);
    const Session shown = sample(0.5, row.shown);
    settleAsShown(shown, file);
    EXPECT_EQ(file.a1(kPair).number() == row.shown, row.isTaken) << row.name;
    EXPECT_EQ(file.c0(kPair).number(), 0.5) << row.name;
  }
  const Row sills[] = {{"the file's own", 0.1234567, 0.1234567, true},
                       {"the step below", 0.1234567, 0.123, true},
                       {"the step above", 0.1237, 0.124, true},
                       {"the step on the other side", 0.1237, 0.123, false},
                       {"a step more", 0.123, 0.124, false}};
  for (const Row& row : sills) {
    Session file = sample(row.inFile, 700);
    settleAsShown(sample(row.shown, 700), file);
    EXPECT_EQ(file.c0(kPair).number() == row.shown, row.isTaken) << row.name;
  }
}

TEST(Settling, LeavesWhatHasNoPlaceOnASlider) {
  Session shown = sample(0.5, 700), file = sample(0.25, 600);
  file.c0(kPair) = Cell::ofText("x");
  file.hmax(kPair) = 0;
  shown.ymax(kPair) = 0;
  settleAsShown(shown, file);
  EXPECT_EQ(file.c0(kPair).toText(), "x");
  EXPECT_EQ(file.a1(kPair).number(), 600);
}

}  // namespace
}  // namespace zevfit::test
