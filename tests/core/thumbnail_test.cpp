// The thumbnail of the plot sample on a picture of 2100 by 1100: the box goes from 50 to 2050 and
// from 1050 up to 50, a unit of distance is 20 and a unit of semivariance 100.

#include <gtest/gtest.h>

#include "report/thumbnail.h"
#include "tests/support/report_bench.h"

namespace zevfit {
namespace {

class Thumbnail : public testing::Test {
 protected:
  const Operations& draw() {
    variog(bench_.reports, 2100, 1100);
    return bench_.reportWindow.sketch.operations;
  }
  /// The samples of the curve, as the last drawing left them.
  void setSamples(double elsewhere, const std::vector<std::pair<int, double>>& samples) {
    for (int i = 1; i <= 100; ++i) session().curveh(i) = i;
    session().curvegam.fill(elsewhere);
    for (const auto& [sample, gamma] : samples) session().curvegam(sample) = gamma;
  }
  Session& session() { return bench_.session; }

  ReportBench bench_;
};

constexpr Stroke kSillLine{kSill, 2, LineStyle::solid};
constexpr Stroke kCurveLine{kCurve, 2, LineStyle::solid};
constexpr Stroke kPoint{kData, 2, LineStyle::solid};

// x = 50 + 20 h, y = 1050 - 100 gamma.
TEST_F(Thumbnail, IsDrawnInItsOrder) {
  // All samples but three lie above the axis.
  setSamples(11, {{10, 2}, {11, 10}, {50, 0}});
  const Operations expected{
      ClearOf{kWhite},
      LineOf{{50, 550}, {2050, 550}, kSillLine},
      DiscOf{{250, 850}, 10, kPoint, kData},
      DiscOf{{550, 650}, 10, kPoint, kData},
      DiscOf{{1050, 250}, 10, kPoint, kData},
      DiscOf{{1550, 450}, 10, kPoint, kData},
      // From sample 1, which is above the axis: 1050 - 1100.
      LineOf{{70, -50}, {250, 850}, kCurveLine},
      LineOf{{250, 850}, {270, 50}, kCurveLine},
      LineOf{{270, 50}, {1050, 1050}, kCurveLine},
  };
  EXPECT_EQ(draw(), expected);
  EXPECT_EQ(bench_.reportWindow.thumbnailSize, Place(2100, 1100));
}

TEST_F(Thumbnail, TakesTheCurveAsTheScreenHasIt) {
  setSamples(3, {});
  session().c0(kPair) = 7;
  EXPECT_EQ(linesOf(draw(), kCurve).at(1), (LineOf{{70, 750}, {90, 750}, kCurveLine}));
  EXPECT_EQ(linesOf(draw(), kCurve).size(), 100U);
}

TEST_F(Thumbnail, WithoutAModelHasNoCurve) {
  setSamples(3, {});
  session().use0(kPair) = 0;
  EXPECT_TRUE(linesOf(draw(), kCurve).empty());
  EXPECT_EQ(only<DiscOf>(draw()).size(), 4U);
}

TEST_F(Thumbnail, ShowsTheVarianceByThePairsOwnCell) {
  session().showsill(kPair) = false;
  EXPECT_TRUE(linesOf(draw(), kSill).empty());
  session().showsill(kPair) = true;
  session().showsill(kPair.exchanged()) = false;
  EXPECT_EQ(linesOf(draw(), kSill).size(), 1U);
}

TEST_F(Thumbnail, SkipsClassesAsThePlotDoes) {
  struct {
    const char* name;
    LagClass lag;
    std::size_t points;
  } const rows[] = {
      {"above the axis", {10, 10.5, 5}, 0}, {"at its top", {10, 10, 5}, 1},
      {"without pairs", {10, 2, 0}, 0},     {"of semivariance 0", {10, 0, 5}, 0},
      {"beyond the axis", {101, 2, 5}, 0},  {"at its end", {100, 2, 5}, 1},
      {"below the axis", {10, -3, 5}, 1},
  };
  session().nclass = 1;
  for (const auto& row : rows) {
    setClasses(session(), kPair, {row.lag});
    EXPECT_EQ(only<DiscOf>(draw()).size(), row.points) << row.name;
  }
}

TEST_F(Thumbnail, SetsADistanceAxisForGood) {
  session().xmax(kPair) = 0;
  session().hmax(kPair) = 200;
  // 50 + 10 h.
  EXPECT_EQ(only<DiscOf>(draw()).front().at, Place(150, 850));
  EXPECT_EQ(session().xmax(kPair), 200);
}

TEST_F(Thumbnail, KeepsADistanceAxisThatIsSet) {
  session().xmax(kPair) = 50;
  draw();
  EXPECT_EQ(session().xmax(kPair), 50);
}

TEST_F(Thumbnail, EndsSilentlyAtAFault) {
  session().ymin(kPair) = 10;
  EXPECT_EQ(draw(), Operations{ClearOf{kWhite}});
  EXPECT_TRUE(bench_.dialogs.shown.empty());
}

TEST_F(Thumbnail, WithoutAFileSaysSo) {
  session().loaded = false;
  EXPECT_TRUE(draw().empty());
  EXPECT_EQ(bench_.dialogs.shown, std::vector<std::string>{test::kNoFileBox});
}

}  // namespace
}  // namespace zevfit
