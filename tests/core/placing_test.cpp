#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>

#include "plot/window/placing.h"
#include "session/line.h"
#include "tests/support/drag_bench.h"

namespace zevfit {
namespace {

TEST(Placing, BringsOutTheHandlesInThisOrder) {
  DragBench bench;
  Picture4_MouseUp(bench.fit.session, bench.fit.plotter, bench.fit.hints, bench.window());
  // Sills: 3120 - 252 * 2, 2.5, 5, 7.5. Ranges: 800 + 48.68 * 25 less the width of 300, and
  // 800 + 40.68 * 50, 75.
  EXPECT_EQ(bench.window().calls,
            (Calls{"handle 0 hidden", "handle 1 hidden", "handle 2 hidden", "handle 3 hidden",
                   "guides hidden", "move 0 2400 2616", "handle 0 shown", "move 1 1717 2490",
                   "handle 1 shown", "move 2 2834 1860", "handle 2 shown", "move 3 3851 1230",
                   "handle 3 shown", "draw"}));
}

TEST(Placing, ShowsOnlyLinesInUse) {
  for (const Line unused : kLines) {
    DragBench bench;
    for (auto& handle : bench.window().handles) handle.visible = true;
    line(bench.session, kPair, unused).use(0);
    Picture4_MouseUp(bench.fit.session, bench.fit.plotter, bench.fit.hints, bench.window());
    for (const Line handle : kLines)
      EXPECT_EQ(bench.window().handles.at(indexOf(handle)).visible, handle != unused)
          << "line " << indexOf(unused) << ", handle " << indexOf(handle);
    EXPECT_EQ(bench.drawings, 1);
  }
}

TEST(Placing, FirstStructureStandsToTheLeftByItsOwnWidthAlone) {
  DragBench bench;
  for (auto& handle : bench.window().handles) handle.width = 123;
  Picture4_MouseUp(bench.fit.session, bench.fit.plotter, bench.fit.hints, bench.window());
  EXPECT_EQ(bench.window().handles[0].left, 2400);
  EXPECT_EQ(bench.window().handles[1].left, 1894);  // 2017 - 123
  EXPECT_EQ(bench.window().handles[2].left, 2834);
  EXPECT_EQ(bench.window().handles[3].left, 3851);
}

TEST(Placing, TestsTheFirstStructureBeforeItsWidthIsTakenOff) {
  DragBench bench;
  bench.session.a1(kPair) = 0;
  Picture4_MouseUp(bench.fit.session, bench.fit.plotter, bench.fit.hints, bench.window());
  EXPECT_TRUE(bench.window().handles[1].visible);
  EXPECT_EQ(bench.window().handles[1].left, 500);  // 800 - 300, left of the box
}

TEST(Placing, HandlesOutsideTheBoxStayHidden) {
  DragBench bench;
  bench.session.ymax(kPair) = 5;
  bench.session.xmax(kPair) = 40;
  Picture4_MouseUp(bench.fit.session, bench.fit.plotter, bench.fit.hints, bench.window());
  // Sills 2, 2.5, 5 fit and 7.5 does not; ranges 25 fits and 50 does not.
  EXPECT_TRUE(bench.window().handles[0].visible);
  EXPECT_TRUE(bench.window().handles[1].visible);
  EXPECT_FALSE(bench.window().handles[2].visible);
  EXPECT_FALSE(bench.window().handles[3].visible);
}

TEST(Placing, ThePlotOwnsTheRangeOfThePairThatWasCurrent) {
  DragBench bench;
  bench.session.setCurrent({2, 1});
  Picture4_MouseUp(bench.fit.session, bench.fit.plotter, bench.fit.hints, bench.window());
  EXPECT_TRUE(bench.session.atyped({2, 1}));
  EXPECT_FALSE(bench.session.atyped(kPair));
  EXPECT_EQ(bench.session.current(), kPair);
}

TEST(Placing, TakesTheSemivarianceAxisOfTheLastDrawingAndTheDistanceAxisOfItsOwn) {
  DragBench bench;
  bench.session.setPlotted({2, 1});
  bench.session.ymax({2, 1}) = 20;
  bench.session.ymin({2, 1}) = -5;
  bench.session.xmax({2, 1}) = 1000;
  bench.session.xmax(kPair) = 200;
  Picture4_MouseUp(bench.fit.session, bench.fit.plotter, bench.fit.hints, bench.window());
  // A unit of semivariance is 2520 / 25 = 100.8 high: 3120 - 100.8 * (2.5 + 5); a unit of distance
  // 4868 / 200 = 24.34 wide: 800 + 24.34 * 25 - 300.
  EXPECT_DOUBLE_EQ(bench.window().handles[1].top, 2364);
  EXPECT_DOUBLE_EQ(bench.window().handles[1].left, 1108.5);
}

TEST(Placing, CountsThePictureWithItsBorder) {
  DragBench bench;
  bench.window().pictureBorder = 30;
  Picture4_MouseUp(bench.fit.session, bench.fit.plotter, bench.fit.hints, bench.window());
  EXPECT_EQ(bench.window().handles[1].left, 1717);
  EXPECT_EQ(bench.window().handles[1].top, 2490);
}

TEST(Placing, HandleThatWasHeldStaysSo) {
  DragBench bench;
  bench.held(Line::second) = true;
  bench.session.dragging = true;
  Picture4_MouseUp(bench.fit.session, bench.fit.plotter, bench.fit.hints, bench.window());
  EXPECT_TRUE(bench.held(Line::second));
  EXPECT_TRUE(bench.session.dragging);
}

TEST(Placing, WindowWithoutAPairShowsNone) {
  DragBench bench;
  bench.window().title = "Formod";
  for (auto& handle : bench.window().handles) handle.visible = true;
  bench.session.plotvar = kVariable;
  Picture4_MouseUp(bench.fit.session, bench.fit.plotter, bench.fit.hints, bench.window());
  EXPECT_EQ(bench.session.current(), (Pair{0, 0}));
  for (const auto& handle : bench.window().handles) EXPECT_FALSE(handle.visible);
}

constexpr std::array<bool, 4> kNoneHeld{};

struct FaultRow {
  const char* name;
  void (*spoil)(DragBench& bench);
};
constexpr FaultRow kFaultRows[] = {
    {"flag is a text", [](DragBench& b) { b.session.use2(kPair) = Cell::ofText("yes"); }},
    {"sill is a text", [](DragBench& b) { b.session.c3(kPair) = Cell::ofText("n.a."); }},
    {"range is a text", [](DragBench& b) { b.session.a1(kPair) = Cell::ofText("n.a."); }},
    {"no distance axis", [](DragBench& b) { b.session.xmax(kPair) = 0; }},
    {"no semivariance axis", [](DragBench& b) { b.session.ymax(kPair) = 0; }},
    {"sill out of bounds", [](DragBench& b) { b.session.c1(kPair) = HUGE_VAL; }},
    {"pair of the window outside the tables", [](DragBench& b) { b.window().title = "42,02"; }},
    {"former pair outside the tables", [](DragBench& b) { b.session.curvar = 42; }},
};

TEST(Placing, AnyFaultFreesAndHidesAllHandles) {
  for (const FaultRow& row : kFaultRows) {
    DragBench bench;
    for (auto& handle : bench.window().handles) handle.visible = true;
    bench.holdAll();
    bench.session.dragging = true;
    row.spoil(bench);
    EXPECT_NO_THROW(
        Picture4_MouseUp(bench.fit.session, bench.fit.plotter, bench.fit.hints, bench.window()))
        << row.name;
    EXPECT_EQ(bench.session.dragsel, kNoneHeld) << row.name;
    for (const auto& handle : bench.window().handles) EXPECT_FALSE(handle.visible) << row.name;
    EXPECT_TRUE(bench.session.dragging) << row.name;
    EXPECT_EQ(bench.drawings, 0) << row.name;
  }
}

TEST(Placing, FaultOfTheDrawingHidesTheHandlesToo) {
  DragBench bench;
  bench.holdAll();
  setNugget(bench.session, kPair, 5);
  struct : Plotter {
    void plotvariogram() override { throw Fault("no drawing"); }
  } plotter;
  Picture4_MouseUp(bench.fit.session, plotter, bench.fit.hints, bench.window());
  EXPECT_EQ(bench.window().handles[0].top, 1860);  // it had been placed
  EXPECT_FALSE(bench.window().handles[0].visible);
  EXPECT_EQ(bench.session.dragsel, kNoneHeld);
}

}  // namespace
}  // namespace zevfit
