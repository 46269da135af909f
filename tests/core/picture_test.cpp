// The picture of a plot on a surface of its own: the operations of the screen, and a session that
// stays as it is.
#include "plot/drawing/picture.h"

#include <gtest/gtest.h>

#include "tests/support/plot_bench.h"
#include "tests/support/same_tables.h"

namespace zevfit {
namespace {

/// All that a drawing on the screen sets in a session.
std::string stateOf(const Session& session) {
  std::string text = test::modelTexts(session) + session.xformat + "|" + session.yformat;
  const auto add = [&text](double value) { text += " " + generalText(value); };
  for (const std::int64_t each :
       {session.curvar, session.curdir, session.plotvar, session.plotdir, session.selvar})
    add(static_cast<double>(each));
  for (int i = 1; i <= kCurvePoints; ++i) {
    add(session.curveh(i));
    add(session.curvegam(i));
    for (const auto& row : session.curverow) add(row(i));
  }
  for (std::int64_t d = 1; d <= 2; ++d) add(session.xmax({1, d}));
  return text;
}

/// Draws the picture of a pair at the size of the pair's window.
Operations pictureOf(PlotBench& bench, Pair pair = kPair) {
  MemoryPlotWindow target;
  target.setPictureSize(bench.window(pair).pictureWidth(), bench.window(pair).pictureHeight());
  drawPicture(bench.session, pair, target);
  return target.surface.operations;
}

TEST(Picture, HasTheOperationsOfTheScreen) {
  PlotBench bench;
  setStructure(bench.session, kPair, Line::first, "S", 3, 60);
  bench.session.showsill(kPair) = true;
  bench.draw();
  bench.draw();
  // Two axes, ten of the grid, ten ticks, two of the legend, the sill and 100 of the curve.
  EXPECT_EQ(only<LineOf>(bench.operations()).size(), 125U);
  expectOperations(pictureOf(bench), bench.operations());
}

TEST(Picture, LeavesTheSessionAsItIs) {
  PlotBench bench;
  bench.draw();
  const Pair other{2, 1};
  setNugget(bench.session, other, 6);
  setStructure(bench.session, other, Line::first, "E", 1, -5);
  const std::string before = stateOf(bench.session);
  const auto calls = bench.panel.calls;
  EXPECT_FALSE(linesOf(pictureOf(bench, other), kCurve).empty());
  EXPECT_EQ(stateOf(bench.session), before);
  EXPECT_EQ(bench.panel.calls, calls);
  EXPECT_EQ(bench.session.a1(other).number(), -5);
}

TEST(Picture, OfAnotherPairIsThatOfItsOwnWindow) {
  PlotBench bench;
  const Pair other{2, 1};
  setNugget(bench.session, other, 6);
  bench.session.setCurrent(other);
  bench.draw();
  bench.window(other).isVisible = true;
  bench.draw();
  const Operations screen = bench.window(other).surface.operations;
  bench.session.setCurrent(kPair);
  bench.draw();
  expectOperations(pictureOf(bench, other), screen);
}

TEST(Picture, EndsSilentlyWhereTheScreenDoes) {
  PlotBench bench;
  bench.draw();
  bench.draw();
  bench.session.ymax(kPair) = 0;
  bench.draw();
  expectOperations(pictureOf(bench), bench.operations());
}

TEST(Picture, OfARefusedPowerAsksNobody) {
  PlotBench bench;
  bench.draw();
  setStructure(bench.session, kPair, Line::second, "P", 1, 2.5);
  const auto shown = bench.dialogs.shown;
  EXPECT_FALSE(linesOf(pictureOf(bench), kCurve).empty());
  EXPECT_EQ(bench.dialogs.shown, shown);
  EXPECT_EQ(bench.session.a2(kPair).number(), 2.5);
}

}  // namespace
}  // namespace zevfit
