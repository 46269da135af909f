// What a drawing does to its window and to the controls before it draws.

#include <gtest/gtest.h>

#include <optional>
#include <utility>

#include "session/fault.h"
#include "session/line.h"
#include "tests/support/plot_bench.h"

namespace zevfit {
namespace {

TEST(PlotGuard, SaysAtEachCallThatThereIsNoFile) {
  PlotBench bench;
  bench.session.loaded = false;
  bench.plotvariogram();
  bench.plotvariogram();
  EXPECT_EQ(bench.dialogs.shown, (std::vector<std::string>(2, {test::kNoFileBox})));
  EXPECT_TRUE(bench.windows.windows.empty());
  EXPECT_EQ(bench.session.plotvar, 0);
  EXPECT_FALSE(bench.panel.ticked(Box::plot1));
}

TEST(PlotGuard, DoesNothingWithoutACurrentPair) {
  for (const Pair pair : {Pair{0, 2}, Pair{1, 0}, Pair{0, 0}}) {
    PlotBench bench;
    bench.session.setCurrent(pair);
    bench.plotvariogram();
    EXPECT_TRUE(bench.dialogs.shown.empty());
    EXPECT_TRUE(bench.windows.windows.empty()) << pair.variable << ", " << pair.direction;
    EXPECT_EQ(bench.session.plotvar, 0);
  }
}

TEST(PlotGuard, LeavesAPairOutsideTheTablesToTheCaller) {
  for (const Pair pair : {Pair{42, 1}, Pair{1, 42}, Pair{1, 22}, Pair{-1, 1}, Pair{1, -1}}) {
    PlotBench bench;
    bench.session.setCurrent(pair);
    EXPECT_THROW(bench.plotvariogram(), Fault) << pair.variable << ", " << pair.direction;
  }
}

TEST(PlotWindowSteps, TakeTheCurrentPair) {
  PlotBench bench;
  bench.draw();
  EXPECT_EQ(bench.session.plotted(), kPair);
  ASSERT_EQ(bench.windows.windows.size(), 1U);
  EXPECT_EQ(bench.windows.windows.begin()->first, (std::pair<std::int64_t, std::int64_t>{1, 2}));
}

TEST(PlotWindowSteps, RestoreAMinimisedWindowAlone) {
  PlotBench bench;
  bench.draw();
  EXPECT_EQ(bench.window().restored, 0);
  bench.window().isMinimised = true;
  bench.draw();
  EXPECT_EQ(bench.window().restored, 1);
  EXPECT_FALSE(bench.window().isMinimised);
}

TEST(PlotWindowSteps, SelectTheFirstStructureOnceAfterALoadWithModels) {
  struct {
    const char* name;
    bool hasmodel, modelshown;
    double use1;
    bool selected, shownAfter;
  } const rows[] = {
      {"a model with structure 1", true, false, 1, true, true},
      {"a model without", true, false, 0, false, true},
      {"a flag of another value", true, false, 2, false, true},
      {"no model block", false, false, 1, false, false},
      {"not the first drawing", true, true, 1, false, true},
  };
  for (const auto& row : rows) {
    PlotBench bench;
    bench.session.hasmodel = row.hasmodel;
    bench.session.modelshown = row.modelshown;
    bench.session.use1(kPair) = row.use1;
    bench.draw();
    const auto selected = row.selected ? std::optional(Line::first) : std::nullopt;
    EXPECT_EQ(bench.panel.line(), selected) << row.name;
    EXPECT_EQ(bench.session.sel, selected) << row.name;
    EXPECT_EQ(bench.session.modelshown, row.shownAfter) << row.name;
  }
}

TEST(PlotWindowSteps, MirrorEachCellInItsBox) {
  constexpr Box kLineBoxes[] = {Box::plot1, Box::plot2, Box::plot3, Box::plot4};
  for (const Line which : kLines) {
    for (const int value : {0, 1, 2, -1}) {
      PlotBench bench;
      line(bench.session, kPair, which).use(value);
      bench.draw();
      EXPECT_EQ(bench.panel.ticked(kLineBoxes[indexOf(which)]), value == 1)
          << indexOf(which) << " " << value;
    }
  }
  for (const bool shown : {false, true}) {
    PlotBench bench;
    bench.session.showsill(kPair) = shown;
    bench.draw();
    EXPECT_EQ(bench.panel.ticked(Box::psill), shown);
  }
}

TEST(PlotWindowSteps, UntickTheBoxesOfAnotherPair) {
  PlotBench bench;
  bench.draw();
  EXPECT_TRUE(bench.panel.ticked(Box::plot1));
  bench.session.curdir = 1;
  bench.session.showsill({1, 1}) = false;
  bench.draw();
  EXPECT_FALSE(bench.panel.ticked(Box::plot1));
  EXPECT_FALSE(bench.panel.ticked(Box::psill));
  EXPECT_EQ(bench.session.use0(kPair).number(), 1);
}

// The boxes of structures 2 and 3 flip a state of all pairs at each click, so that a box that the
// drawing ticks can clear the cell which it mirrors; the steps behind it see the cleared cell.
TEST(PlotWindowSteps, FollowWhatTheBoxesDoToTheirCells) {
  struct {
    const char* name;
    bool state;
    int cellAfter;
  } const rows[] = {{"state clear", false, 1}, {"state set", true, 0}};
  for (const auto& row : rows) {
    PlotBench bench;
    bench.session.use0(kPair) = 0;
    bench.session.use2(kPair) = 1;
    bench.session.plot3state = row.state;
    bench.draw();
    EXPECT_TRUE(bench.panel.ticked(Box::plot3)) << row.name;
    EXPECT_EQ(bench.session.use2(kPair).number(), row.cellAfter) << row.name;
    EXPECT_EQ(textsNamed(bench.operations(), "Model").size(), row.cellAfter) << row.name;
    EXPECT_EQ(linesOf(bench.operations(), kCurve).empty(), row.cellAfter == 0) << row.name;
  }
}

TEST(PlotWindowSteps, DoTheSameForTheThirdStructure) {
  PlotBench bench;
  bench.session.use0(kPair) = 0;
  bench.session.use3(kPair) = 1;
  bench.session.plot4state = true;
  bench.draw();
  EXPECT_TRUE(bench.panel.ticked(Box::plot4));
  EXPECT_EQ(bench.session.use3(kPair), 0);
  EXPECT_TRUE(textsNamed(bench.operations(), "Model").empty());
}

TEST(PlotWindowSteps, ColourTheOverlays) {
  PlotBench bench;
  bench.draw();
  EXPECT_EQ(bench.window().overlayForeground, kText);
  EXPECT_EQ(bench.window().overlayBackground, kBackground);
}

TEST(PlotWindowSteps, WriteTheCaption) {
  PlotBench bench;
  bench.draw();
  EXPECT_EQ(bench.window().title, "01,02  Variable:  zinc   Direction: 45 0 NE");
}

TEST(PlotWindowSteps, MeasureTheTitleInItsFont) {
  PlotBench bench;
  bench.draw();
  EXPECT_EQ(bench.window().measuredText, "Semivariogram (45 0 NE)");
  EXPECT_EQ(bench.window().measuredFont, kTitleFont);
}

TEST(PlotWindowSteps, GiveAWindowThatIsNotOnShowItsStandardSize) {
  PlotBench bench;
  bench.draw();
  const MemoryPlotWindow& window = bench.window();
  EXPECT_EQ(window.width(), 6576);
  EXPECT_EQ(window.height(), 3852);
  EXPECT_EQ(window.pictureWidth(), 6468);
  EXPECT_EQ(window.pictureHeight(), 3720);
}

TEST(PlotWindowSteps, LetThePictureFollowAWindowOnShow) {
  PlotBench bench;
  bench.draw();
  bench.window().setSize(5000, 3000);
  bench.draw();
  EXPECT_EQ(bench.window().width(), 5000);
  EXPECT_EQ(bench.window().height(), 3000);
  EXPECT_EQ(bench.window().pictureWidth(), 4892);
  EXPECT_EQ(bench.window().pictureHeight(), 2868);
  // Centred on the width that the picture had before: 6468 / 2 - 23 * 60.
  EXPECT_EQ(only<TextOf>(bench.operations())[0].at, (Place{1854, 100}));
}

TEST(PlotWindowSteps, BringTheWindowToTheFrontOncePerDrawing) {
  PlotBench bench;
  bench.draw();
  EXPECT_EQ(bench.window().fronted, 1);
  bench.draw();
  EXPECT_EQ(bench.window().fronted, 2);
}

TEST(PlotPen, BelongsToItsWindow) {
  PlotBench bench;
  bench.draw();
  bench.draw();
  bench.session.curdir = 1;
  bench.draw();
  EXPECT_EQ(only<DiscOf>(bench.window().surface.operations)[0].outline.width, 2);
  EXPECT_EQ(only<DiscOf>(bench.window({1, 1}).surface.operations)[0].outline.width, 1);
}

TEST(PlotPen, StaysAtTwoAndSolid) {
  PlotBench bench;
  bench.draw();
  EXPECT_EQ(bench.window().penState.width, 2);
  EXPECT_EQ(bench.window().penState.style, LineStyle::solid);
}

TEST(PlotPen, StaysAsAFaultOfTheFrameFindsIt) {
  PlotBench bench;
  bench.session.use0(kPair) = Cell::ofText("n.a.");
  bench.window().penState.width = 5;
  EXPECT_THROW(bench.plotvariogram(), Fault);
  EXPECT_EQ(bench.window().penState.width, 5);
}

TEST(PlotPen, KeepsItsStyleForTheAxes) {
  PlotBench bench;
  bench.window().penState = {3, LineStyle::dotted};
  bench.draw();
  const Operations& all = bench.operations();
  EXPECT_EQ(only<DiscOf>(all)[0].outline, (Stroke{kData, 3, LineStyle::dotted}));
  EXPECT_EQ(linesOf(all, kText)[0].stroke, (Stroke{kText, 1, LineStyle::dotted}));
}

}  // namespace
}  // namespace zevfit
