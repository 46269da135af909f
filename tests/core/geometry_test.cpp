#include <gtest/gtest.h>

#include "plot/drawing/geometry.h"
#include "session/fault.h"

namespace zevfit {
namespace {

// A window of standard size: 6576 - 108 across, 3852 - 132 down.
constexpr PlotBox kStandard{6468, 3720};

TEST(PlotBox, KeepsItsMarginsAtTheStandardSize) {
  EXPECT_EQ(kStandard.xleft, 800);
  EXPECT_EQ(kStandard.ytop, 600);
  EXPECT_EQ(kStandard.xright(), 5668);
  EXPECT_EQ(kStandard.ybottom(), 3120);
}

TEST(PlotBox, SplitsIntoFiveColumnsAndRows) {
  // (5668 - 800) / 5 = 973.6 and (3120 - 600) / 5 = 504.
  const double columns[] = {1773.6, 2747.2, 3720.8, 4694.4, 5668};
  const double rows[] = {600, 1104, 1608, 2112, 2616};
  for (int k = 0; k < 5; ++k) {
    EXPECT_DOUBLE_EQ(kStandard.xgrid(k + 1), columns[k]) << k;
    EXPECT_DOUBLE_EQ(kStandard.ygrid(k), rows[k]) << k;
  }
}

TEST(PlotBox, KeepsItsMarginsInASmallPicture) {
  // A window 4000 wide and 2400 high.
  constexpr PlotBox kSmall{3892, 2268};
  EXPECT_EQ(kSmall.xright(), 3092);
  EXPECT_EQ(kSmall.ybottom(), 1668);
  EXPECT_DOUBLE_EQ(kSmall.xgrid(1), 1258.4);
  EXPECT_DOUBLE_EQ(kSmall.ygrid(1), 813.6);
}

TEST(PlotMap, PutsTheEndsOfTheAxesOnTheBox) {
  const PlotMap map{kStandard, 100, -1, 3};
  EXPECT_DOUBLE_EQ(map.x(0), 800);
  EXPECT_DOUBLE_EQ(map.x(100), 5668);
  EXPECT_DOUBLE_EQ(map.y(-1), 3120);
  EXPECT_DOUBLE_EQ(map.y(3), 600);
}

TEST(PlotMap, IsStraightBetweenAndBeyondThem) {
  const PlotMap map{kStandard, 100, -1, 3};
  EXPECT_DOUBLE_EQ(map.x(25), 2017);    // 800 + 48.68 * 25
  EXPECT_DOUBLE_EQ(map.x(150), 8102);   // 800 + 48.68 * 150
  EXPECT_DOUBLE_EQ(map.x(-10), 313.2);  // 800 - 486.8
  EXPECT_DOUBLE_EQ(map.y(0), 2490);     // 3120 - 630
  EXPECT_DOUBLE_EQ(map.y(5), -660);     // 3120 - 630 * 6
  EXPECT_DOUBLE_EQ(map.y(-2), 3750);    // 3120 + 630
}

TEST(PlotMap, HasNoPlaceOnAnEmptyAxis) {
  EXPECT_THROW((PlotMap{kStandard, 0, 0, 1}.x(0)), Fault);
  EXPECT_THROW((PlotMap{kStandard, 1, 2, 2}.y(2)), Fault);
  EXPECT_DOUBLE_EQ((PlotMap{kStandard, 0, 0, 1}.y(0)), 3120);
  EXPECT_DOUBLE_EQ((PlotMap{kStandard, 1, 2, 2}.x(0)), 800);
}

TEST(PlotMap, HasNoPlaceBeyondTheNumbers) {
  EXPECT_THROW((PlotMap{kStandard, 1e-300, 0, 1}.x(1e+20)), Fault);
  EXPECT_THROW((PlotMap{kStandard, 1, 0, 1e-300}.y(1e+20)), Fault);
  EXPECT_THROW((PlotMap{kStandard, 1, -1.7e+308, 1.7e+308}.y(-1.7e+308)), Fault);
}

}  // namespace
}  // namespace zevfit
