// Points, sill line and curve in a window of standard size: x = 800 + 48.68 h, y = 3120 - 252 g.

#include <gtest/gtest.h>

#include "tests/support/plot_bench.h"

namespace zevfit {
namespace {

constexpr Stroke kCurveStroke{kCurve, 2, LineStyle::solid};

DiscOf point(double x, double y) { return {{x, y}, 27, {kData, 2, LineStyle::solid}, kData}; }

/// The pieces of the curve, without the sample of the legend.
std::vector<LineOf> piecesOf(const Operations& operations) {
  std::vector<LineOf> lines = linesOf(operations, kCurve);
  if (!lines.empty()) lines.erase(lines.begin());
  return lines;
}

TEST(PlotPoints, LeaveOutWhatTheAxesOrTheDataDoNotHold) {
  struct {
    const char* name;
    LagClass lag;
    std::vector<DiscOf> points;
  } const rows[] = {
      {"inside", {50, 5, 1}, {point(3234, 1860)}},
      {"at the top", {50, 10, 1}, {point(3234, 600)}},
      {"above the top", {50, 10.001, 1}, {}},
      {"at the right end", {100, 5, 1}, {point(5668, 1860)}},
      {"beyond the right end", {100.001, 5, 1}, {}},
      {"below the axis", {50, -1, 1}, {point(3234, 3372)}},
      {"to the left of the axis", {-10, 5, 1}, {point(313.2, 1860)}},
      {"at distance 0", {0, 5, 1}, {point(800, 1860)}},
      {"no semivariance", {50, 0, 1}, {}},
      {"no pairs", {50, 5, 0}, {}},
      {"part of a pair", {50, 5, 0.5F}, {point(3234, 1860)}},
      {"fewer than no pairs", {50, 5, -1}, {point(3234, 1860)}},
      {"many pairs", {50, 5, 1e+06F}, {point(3234, 1860)}},
  };
  for (const auto& row : rows) {
    PlotBench bench;
    bench.session.nclass = 1;
    setClasses(bench.session, kPair, {row.lag});
    bench.draw();
    EXPECT_EQ(pointsOf(bench.operations()), row.points) << row.name;
    EXPECT_EQ(bench.window().fronted, 1) << row.name;
  }
}

TEST(PlotPoints, ComeInTheOrderOfTheClasses) {
  PlotBench bench;
  setClasses(bench.session, kPair, {{75, 1, 1}, {25, 2, 1}, {50, 3, 1}, {0, 4, 1}});
  bench.draw();
  EXPECT_EQ(pointsOf(bench.operations()),
            (std::vector<DiscOf>{point(4451, 2868), point(2017, 2616), point(3234, 2364),
                                 point(800, 2112)}));
}

TEST(PlotPoints, AreThoseOfTheClassesOfTheFile) {
  struct {
    std::int64_t nclass;
    std::size_t points;
  } const rows[] = {{0, 0}, {-5, 0}, {1, 1}, {3, 3}, {4, 4}};
  for (const auto& row : rows) {
    PlotBench bench;
    bench.session.nclass = row.nclass;
    bench.draw();
    EXPECT_EQ(pointsOf(bench.operations()).size(), row.points) << row.nclass;
    EXPECT_EQ(bench.window().fronted, 1) << row.nclass;
  }
}

TEST(PlotPoints, LeaveOutTheSlotInFrontOfTheFirstClass) {
  PlotBench bench;
  bench.session.hlag.set(kPair, 0, 60);
  bench.session.gam.set(kPair, 0, 6);
  bench.session.npairs.set(kPair, 0, 6);
  bench.draw();
  EXPECT_EQ(pointsOf(bench.operations()).size(), 4U);
}

TEST(PlotPoints, DoNotWaitForClassesThatAFileOnlyClaims) {
  PlotBench bench;
  bench.session.nclass = 9'000'000'000'000'000'000;
  bench.session.hlag.create(bench.session.nclass);
  bench.session.gam.create(bench.session.nclass);
  bench.session.npairs.create(bench.session.nclass);
  setClasses(bench.session, kPair, {{10, 2, 5}, {25, 4, 7}});
  bench.draw();
  EXPECT_EQ(pointsOf(bench.operations()).size(), 2U);
  EXPECT_EQ(bench.window().fronted, 1);
}

TEST(PlotPoints, AreNoneWhereNoClassWasRead) {
  PlotBench bench;
  bench.session.hlag.create(4);
  bench.session.gam.create(4);
  bench.session.npairs.create(4);
  bench.draw();
  EXPECT_TRUE(pointsOf(bench.operations()).empty());
  EXPECT_EQ(piecesOf(bench.operations()).size(), 100U);
}

TEST(PlotSill, MarksTheVarianceAndNotTheModel) {
  PlotBench bench;
  bench.session.variance(1) = 8;
  bench.session.c0(kPair) = 3;
  bench.draw();
  // The first red line is the sample of the legend.
  EXPECT_EQ(linesOf(bench.operations(), kSill)[1],
            (LineOf{{5668, 1104}, {800, 1104}, {kSill, 2, LineStyle::solid}}));
  bench.session.c0(kPair) = 4;
  bench.draw();
  EXPECT_EQ(linesOf(bench.operations(), kSill)[1].from, (Place{5668, 1104}));
}

TEST(PlotSill, MovesWithTheVariable) {
  PlotBench bench;
  bench.session.curvar = 2;
  bench.draw();
  // 3120 - 252 * 7.5
  EXPECT_EQ(linesOf(bench.window({2, 2}).surface.operations, kSill)[1].from, (Place{5668, 1230}));
}

TEST(PlotSill, MayLieOutsideTheBox) {
  PlotBench bench;
  bench.session.variance(1) = 20;
  bench.draw();
  EXPECT_EQ(linesOf(bench.operations(), kSill)[1].from, (Place{5668, -1920}));
}

TEST(PlotCurve, IsSampledButNotDrawnWithoutAModel) {
  PlotBench bench;
  bench.session.use0(kPair) = 0;
  bench.session.curvegam.fill(7);
  bench.draw();
  EXPECT_TRUE(linesOf(bench.operations(), kCurve).empty());
  EXPECT_EQ(pointsOf(bench.operations()).size(), 4U);
  EXPECT_EQ(linesOf(bench.operations(), kSill).size(), 2U);
  EXPECT_EQ(bench.session.curveh(100), 100);
  EXPECT_EQ(bench.session.curvegam(100), 0);
  EXPECT_EQ(bench.window().fronted, 1);
}

TEST(PlotCurve, BeginsWithAPieceOfNoLength) {
  PlotBench bench;
  bench.setCurve({{2, 6}}, 5);
  bench.draw();
  const std::vector<LineOf> pieces = piecesOf(bench.operations());
  ASSERT_EQ(pieces.size(), 100U);
  EXPECT_EQ(pieces[0], (LineOf{{848.68, 1860}, {848.68, 1860}, kCurveStroke}));
  EXPECT_EQ(pieces[1], (LineOf{{848.68, 1860}, {897.36, 1608}, kCurveStroke}));
  EXPECT_EQ(pieces[99], (LineOf{{5619.32, 1860}, {5668, 1860}, kCurveStroke}));
}

TEST(PlotCurve, BridgesARunOutsideByOneChord) {
  struct {
    const char* name;
    double outside;
  } const rows[] = {{"above", 10.5}, {"below", -0.5}};
  for (const auto& row : rows) {
    PlotBench bench;
    bench.setCurve({{39, 4}, {40, row.outside}, {41, row.outside}, {42, 6}}, 5);
    bench.draw();
    const std::vector<LineOf> pieces = piecesOf(bench.operations());
    ASSERT_EQ(pieces.size(), 98U) << row.name;
    EXPECT_EQ(pieces[38].to, (Place{2698.52, 2112})) << row.name;
    EXPECT_EQ(pieces[39], (LineOf{{2698.52, 2112}, {2844.56, 1608}, kCurveStroke})) << row.name;
    EXPECT_EQ(pieces[40].from, (Place{2844.56, 1608})) << row.name;
  }
}

TEST(PlotCurve, StartsOutsideWhereTheFirstSampleIs) {
  struct {
    const char* name;
    double first;
    double y;
  } const rows[] = {{"above", 20, -1920}, {"below", -1, 3372}};
  for (const auto& row : rows) {
    PlotBench bench;
    bench.setCurve({{1, row.first}, {2, -3}, {3, 30}}, 5);
    bench.draw();
    const std::vector<LineOf> pieces = piecesOf(bench.operations());
    ASSERT_EQ(pieces.size(), 97U) << row.name;
    EXPECT_EQ(pieces[0], (LineOf{{848.68, row.y}, {994.72, 1860}, kCurveStroke})) << row.name;
  }
}

TEST(PlotCurve, HasTheEdgesOfTheAxisInside) {
  PlotBench bench;
  bench.setCurve({{50, 10}, {51, 0}}, 5);
  bench.draw();
  const std::vector<LineOf> pieces = piecesOf(bench.operations());
  ASSERT_EQ(pieces.size(), 100U);
  EXPECT_EQ(pieces[50], (LineOf{{3234, 600}, {3282.68, 3120}, kCurveStroke}));
}

TEST(PlotCurve, DrawsNothingAboveTheAxis) {
  PlotBench bench;
  bench.setCurve({}, 11);
  bench.draw();
  EXPECT_TRUE(piecesOf(bench.operations()).empty());
  // The sample of the legend alone.
  EXPECT_EQ(linesOf(bench.operations(), kCurve).size(), 1U);
  EXPECT_EQ(bench.window().fronted, 1);
}

// A power structure of exponent 1 is the distance itself: 10 samples up to the top.
TEST(PlotCurve, IsTheSampledModel) {
  PlotBench bench;
  bench.session.use0(kPair) = 0;
  bench.session.use1(kPair) = 1;
  bench.session.model1(kPair) = "P";
  bench.session.a1(kPair) = 1;
  bench.draw();
  const std::vector<LineOf> pieces = piecesOf(bench.operations());
  ASSERT_EQ(pieces.size(), 10U);
  EXPECT_EQ(pieces[9], (LineOf{{1238.12, 852}, {1286.8, 600}, kCurveStroke}));
}

TEST(PlotRange, CutsPointsAndCurveAtALowerTop) {
  PlotBench bench;
  bench.setCurve({{60, 5.5}}, 4.5);
  bench.session.ymax(kPair) = 5;
  bench.draw();
  // y = 3120 - 504 g
  EXPECT_EQ(pointsOf(bench.operations()),
            (std::vector<DiscOf>{point(1286.8, 2112), point(2017, 1104)}));
  EXPECT_EQ(piecesOf(bench.operations()).size(), 99U);
}

TEST(PlotRange, SamplesTheCurveOverAShorterAxis) {
  PlotBench bench;
  bench.session.xmax(kPair) = 50;
  bench.draw();
  EXPECT_EQ(bench.session.curveh(1), 0.5);
  EXPECT_EQ(bench.session.curveh(100), 50);
  // x = 800 + 97.36 h; the class at 75 is gone.
  EXPECT_EQ(pointsOf(bench.operations()),
            (std::vector<DiscOf>{point(1773.6, 2616), point(3234, 2112), point(5668, 1104)}));
  EXPECT_EQ(piecesOf(bench.operations())[0].from, (Place{848.68, 2616}));
}

TEST(PlotRange, DrawsANegativeAxisFromItsBottom) {
  PlotBench bench;
  bench.session.ymin(kPair) = -10;
  setClasses(bench.session, kPair, {{50, -10, 1}, {50, -2, 1}});
  bench.session.nclass = 2;
  bench.draw();
  // y = 3120 - 126 (g + 10)
  EXPECT_EQ(pointsOf(bench.operations()),
            (std::vector<DiscOf>{point(3234, 3120), point(3234, 2112)}));
  EXPECT_EQ(linesOf(bench.operations(), kSill)[1].from, (Place{5668, 1230}));
  EXPECT_EQ(piecesOf(bench.operations())[0].from, (Place{848.68, 1608}));
}

TEST(PlotControls, ShowTheVariance) {
  PlotBench bench;
  bench.session.variance(1) = 7.23456;
  bench.draw();
  EXPECT_EQ(bench.panel.caption(Caption::Labelvariance), "7.235");
  bench.session.curvar = 2;
  bench.draw();
  EXPECT_EQ(bench.panel.caption(Caption::Labelvariance), "7.5");
}

TEST(PlotControls, ShowTheModelOfThePair) {
  PlotBench bench;
  bench.session.sel = Line::first;
  setStructure(bench.session, kPair, Line::first, "S", 2.5, 40);
  bench.draw();
  EXPECT_EQ(bench.panel.letter(Line::first), "S");
  EXPECT_EQ(bench.panel.text(Field::c0), "2.5");
  EXPECT_EQ(bench.panel.text(Field::a), "40");
  EXPECT_EQ(bench.session.c0scale, 32000);
}

// 32000 of the sill slider for 10, of the range slider for 20 times 100 less 0.0001.
TEST(PlotControls, LetTheSlidersCatchUpWithTypedValues) {
  PlotBench bench;
  bench.draw();
  bench.session.c0typed(kPair) = true;
  bench.session.atyped(kPair) = true;
  bench.panel.setText(Field::c0, "5");
  bench.panel.setText(Field::a, "10");
  EXPECT_EQ(bench.panel.position(Slider::c0), 0);
  EXPECT_EQ(bench.panel.position(Slider::a), 0);
  bench.draw();
  EXPECT_EQ(bench.panel.position(Slider::c0), 16000);
  EXPECT_EQ(bench.panel.position(Slider::a), 160);
  EXPECT_EQ(bench.panel.text(Field::c0), "5");
  EXPECT_EQ(bench.panel.text(Field::a), "10");
}

}  // namespace
}  // namespace zevfit
