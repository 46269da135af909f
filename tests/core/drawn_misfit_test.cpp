// The misfit that a drawing finds: of the curve and the points that its picture shows. The sample
// has distances 10, 25, 50, 75 with semivariances 2, 4, 8, 6 of 5, 7, 3, 1 pairs, axes that end at
// 100 and 10, a nugget of 2 and the variance 5.

#include <gtest/gtest.h>

#include <cmath>

#include "session/line.h"
#include "tests/support/plot_bench.h"

namespace zevfit {
namespace {

/// Differences 0, 2, 6, 4: (7 * 4 + 3 * 36 + 1 * 16) / 16 = 9.5.
const double kWhole = std::sqrt(9.5) / 5;
/// The same without the last class.
const double kWithoutLast = std::sqrt(136.0 / 15) / 5;

std::optional<double> drawn(PlotBench& bench) {
  bench.draw();
  return bench.window().misfit();
}

void setLastClass(PlotBench& bench, const Cell& h, double gamma, float pairs) {
  bench.session.hlag.set(kPair, 4, h);
  bench.session.gam.set(kPair, 4, gamma);
  bench.session.npairs.set(kPair, 4, pairs);
}

TEST(DrawnMisfit, IsThatOfTheCurveAndThePointsOfThePlot) {
  PlotBench bench;
  EXPECT_DOUBLE_EQ(drawn(bench).value(), kWhole);
}

TEST(DrawnMisfit, LeavesOutTheClassesThatThePlotDoesNotShow) {
  struct Row {
    const char* name;
    void (*change)(PlotBench& bench);
  };
  const Row rows[] = {
      {"no pairs", [](PlotBench& bench) { setLastClass(bench, 75, 6, 0); }},
      {"a semivariance of 0", [](PlotBench& bench) { setLastClass(bench, 75, 0, 1); }},
      {"above the axis", [](PlotBench& bench) { setLastClass(bench, 75, 10.5, 1); }},
      {"beyond the axis", [](PlotBench& bench) { bench.session.xmax(kPair) = 74; }},
      {"behind the classes", [](PlotBench& bench) { bench.session.nclass = 3; }},
  };
  for (const Row& row : rows) {
    PlotBench bench;
    row.change(bench);
    EXPECT_DOUBLE_EQ(drawn(bench).value(), kWithoutLast) << row.name;
    EXPECT_EQ(pointsOf(bench.operations()).size(), 3U) << row.name;
  }
}

TEST(DrawnMisfit, CountsWhatIsDrawnBelowTheAxisAndOfANegativeCount) {
  PlotBench bench;
  setLastClass(bench, 75, -2, -1);
  EXPECT_DOUBLE_EQ(drawn(bench).value(), kWhole) << "a difference of 4 still";
  EXPECT_EQ(pointsOf(bench.operations()).size(), 4U);
}

TEST(DrawnMisfit, StaysThatOfTheCurveUntilTheNextDrawing) {
  PlotBench bench;
  EXPECT_DOUBLE_EQ(drawn(bench).value(), kWhole);
  line(bench.session, kPair, Line::nugget).sill() = 4;
  EXPECT_DOUBLE_EQ(bench.window().misfit().value(), kWhole) << "typed";
  redrawPlot(bench.fit, bench.window());
  EXPECT_DOUBLE_EQ(bench.window().misfit().value(), kWhole) << "in another size, the same curve";
  // Differences 2, 0, 4, 2: (5 * 4 + 3 * 16 + 1 * 4) / 16 = 4.5.
  EXPECT_DOUBLE_EQ(drawn(bench).value(), std::sqrt(4.5) / 5);
}

TEST(DrawnMisfit, OfAnotherPlotIsThatOfTheCurveThatItsResizeSamples) {
  PlotBench bench;
  bench.draw();
  const Pair other = kPair.exchanged();
  setClasses(bench.session, other, {{10, 5, 3}});
  setNugget(bench.session, other, 2);
  bench.session.setCurrent(other);
  bench.draw();
  bench.session.c0(kPair) = 4;
  redrawPlot(bench.fit, bench.window());
  EXPECT_DOUBLE_EQ(bench.window().misfit().value(), std::sqrt(4.5) / 5);
  EXPECT_DOUBLE_EQ(bench.window(other).misfit().value(), 3 / 7.5);
}

TEST(DrawnMisfit, IsMissingWhereSomethingOfItIs) {
  struct Row {
    const char* name;
    void (*change)(PlotBench& bench);
  };
  const Row rows[] = {
      {"no model", [](PlotBench& bench) { bench.session.use0(kPair) = 0; }},
      {"no variance", [](PlotBench& bench) { bench.session.variance(kVariable) = 0; }},
      {"a text", [](PlotBench& bench) { bench.session.variance(kVariable) = Cell::ofText("s"); }},
      {"no point", [](PlotBench& bench) { bench.session.nclass = 0; }},
      {"no axis", [](PlotBench& bench) { bench.session.ymax(kPair) = 0; }},
      {"a distance that is a text",
       [](PlotBench& bench) { setLastClass(bench, Cell::ofText("far"), 6, 1); }},
  };
  for (const Row& row : rows) {
    PlotBench bench;
    EXPECT_TRUE(drawn(bench)) << row.name;
    row.change(bench);
    EXPECT_FALSE(drawn(bench)) << row.name;
  }
}

TEST(DrawnMisfit, IsMissingWhereTheCurveIsNotThatOfTheModel) {
  PlotBench bench;
  // Its row holds 1: a line without a form adds that to the curve.
  bench.setCurve({}, 1);
  EXPECT_FALSE(drawn(bench));
  setStructure(bench.session, kPair, Line::first, "P", 1, 3);
  EXPECT_FALSE(drawn(bench)) << "refused, so that the curve is the last complete one";
  EXPECT_FALSE(bench.dialogs.shown.empty());
}

}  // namespace
}  // namespace zevfit
