// What a drawing does to its window and to the controls before it draws.

#include <gtest/gtest.h>

#include <array>

#include "session/fault.h"
#include "tests/support/plot_bench.h"

namespace zevfit {
namespace {

TEST(PlotGuard, SaysAtEachCallThatThereIsNoFile) {
  PlotBench bench;
  bench.session.loaded = false;
  bench.plotvariogram();
  bench.plotvariogram();
  EXPECT_EQ(bench.dialogs.shown,
            (std::vector<std::string>(2, {"plain: Please select input data file (*.ZVM) first!"})));
  EXPECT_TRUE(bench.windows.windows.empty());
  EXPECT_EQ(bench.session.plotvar, 0);
  EXPECT_FALSE(bench.panel.ticked(Box::plot1));
}

TEST(PlotGuard, DoesNothingWithoutACurrentPair) {
  for (const auto& [variable, direction] : {std::pair{0, 2}, std::pair{1, 0}, std::pair{0, 0}}) {
    PlotBench bench;
    bench.session.curvar = variable;
    bench.session.curdir = direction;
    bench.plotvariogram();
    EXPECT_TRUE(bench.dialogs.shown.empty());
    EXPECT_TRUE(bench.windows.windows.empty()) << variable << ", " << direction;
    EXPECT_EQ(bench.session.plotvar, 0);
  }
}

TEST(PlotGuard, LeavesAPairOutsideTheTablesToTheCaller) {
  for (const auto& [variable, direction] :
       {std::pair{42, 1}, std::pair{1, 42}, std::pair{1, 22}, std::pair{-1, 1}, std::pair{1, -1}}) {
    PlotBench bench;
    bench.session.curvar = variable;
    bench.session.curdir = direction;
    EXPECT_THROW(bench.plotvariogram(), Fault) << variable << ", " << direction;
  }
}

TEST(PlotWindowSteps, TakeTheCurrentPair) {
  PlotBench bench;
  bench.draw();
  EXPECT_EQ(bench.session.plotvar, 1);
  EXPECT_EQ(bench.session.plotdir, 2);
  ASSERT_EQ(bench.windows.windows.size(), 1U);
  // Windows have the direction first.
  EXPECT_EQ(bench.windows.windows.begin()->first, (std::pair<std::int64_t, std::int64_t>{2, 1}));
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
    int hasmodel, modelshown;
    double use1;
    bool selected;
    int shownAfter;
  } const rows[] = {
      {"a model with structure 1", 1, 0, 1, true, 1}, {"a model without", 1, 0, 0, false, 1},
      {"a flag of another value", 1, 0, 2, false, 1}, {"no model block", 0, 0, 1, false, 0},
      {"not the first drawing", 1, 1, 1, false, 1},
  };
  for (const auto& row : rows) {
    PlotBench bench;
    bench.session.hasmodel = row.hasmodel;
    bench.session.modelshown = row.modelshown;
    bench.session.use1(kVariable, kDirection) = row.use1;
    bench.draw();
    EXPECT_EQ(bench.panel.line(), row.selected ? 1 : -1) << row.name;
    EXPECT_EQ(bench.session.sel[1], row.selected ? 1 : 0) << row.name;
    EXPECT_EQ(bench.session.modelshown, row.shownAfter) << row.name;
  }
}

TEST(PlotWindowSteps, MirrorEachCellInItsBox) {
  struct {
    Box box;
    const char* name;
    void (*set)(Session&, std::int16_t);
  } const rows[] = {
      {Box::plot1, "use0", [](Session& s, std::int16_t to) { s.use0(1, 2) = to; }},
      {Box::plot2, "use1", [](Session& s, std::int16_t to) { s.use1(1, 2) = to; }},
      {Box::plot3, "use2", [](Session& s, std::int16_t to) { s.use2(1, 2) = to; }},
      {Box::plot4, "use3", [](Session& s, std::int16_t to) { s.use3(1, 2) = to; }},
      {Box::psill, "showsill", [](Session& s, std::int16_t to) { s.showsill(1, 2) = to; }},
  };
  for (const auto& row : rows) {
    for (const std::int16_t value : std::array<std::int16_t, 4>{0, 1, 2, -1}) {
      PlotBench bench;
      row.set(bench.session, value);
      bench.draw();
      EXPECT_EQ(bench.panel.ticked(row.box), value == 1) << row.name << " " << value;
    }
  }
}

TEST(PlotWindowSteps, UntickTheBoxesOfAnotherPair) {
  PlotBench bench;
  bench.draw();
  EXPECT_TRUE(bench.panel.ticked(Box::plot1));
  bench.session.curdir = 1;
  bench.session.showsill(1, 1) = 0;
  bench.draw();
  EXPECT_FALSE(bench.panel.ticked(Box::plot1));
  EXPECT_FALSE(bench.panel.ticked(Box::psill));
  EXPECT_EQ(bench.session.use0(1, 2).number(), 1);
}

// The boxes of structures 2 and 3 flip a state of all pairs at each click, so that a box that the
// drawing ticks can clear the cell which it mirrors; the steps behind it see the cleared cell.
TEST(PlotWindowSteps, FollowWhatTheBoxesDoToTheirCells) {
  struct {
    const char* name;
    int state;
    int cellAfter;
  } const rows[] = {{"state clear", 0, 1}, {"state set", 1, 0}};
  for (const auto& row : rows) {
    PlotBench bench;
    bench.session.use0(1, 2) = 0;
    bench.session.use2(1, 2) = 1;
    bench.session.plot3state = row.state;
    bench.draw();
    EXPECT_TRUE(bench.panel.ticked(Box::plot3)) << row.name;
    EXPECT_EQ(bench.session.use2(1, 2).number(), row.cellAfter) << row.name;
    EXPECT_EQ(textsNamed(bench.operations(), "Model").size(), row.cellAfter) << row.name;
    EXPECT_EQ(linesOf(bench.operations(), kCurve).empty(), row.cellAfter == 0) << row.name;
  }
}

TEST(PlotWindowSteps, DoTheSameForTheThirdStructure) {
  PlotBench bench;
  bench.session.use0(1, 2) = 0;
  bench.session.use3(1, 2) = 1;
  bench.session.plot4state = 1;
  bench.draw();
  EXPECT_TRUE(bench.panel.ticked(Box::plot4));
  EXPECT_EQ(bench.session.use3(1, 2), 0);
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
  EXPECT_EQ(only<DiscOf>(bench.window(1, 2).surface.operations)[0].outline.width, 2);
  EXPECT_EQ(only<DiscOf>(bench.window(1, 1).surface.operations)[0].outline.width, 1);
}

TEST(PlotPen, StaysAtTwoAndSolid) {
  PlotBench bench;
  bench.draw();
  EXPECT_EQ(bench.window().penState.width, 2);
  EXPECT_EQ(bench.window().penState.style, LineStyle::solid);
}

TEST(PlotPen, StaysAsAFaultOfTheFrameFindsIt) {
  PlotBench bench;
  bench.session.curvar = 22;
  bench.window(22, 2).penState.width = 5;
  EXPECT_THROW(bench.plotvariogram(), Fault);
  EXPECT_EQ(bench.window(22, 2).penState.width, 5);
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
