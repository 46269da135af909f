#include <gtest/gtest.h>

#include <string>

#include "plot/window/drag_events.h"
#include "plot/window/grip_events.h"
#include "plot/window/placing.h"
#include "session/fault.h"
#include "session/line.h"
#include "tests/support/drag_bench.h"

namespace zevfit {
namespace {

using CellTable = PairTable<Cell> Session::*;
constexpr CellTable kCells[] = {&Session::c0, &Session::c1, &Session::c2, &Session::c3,
                                &Session::a1, &Session::a2, &Session::a3};

/// The handle of the selected line is held.
struct HeldBench : DragBench {
  HeldBench(Line handle, DragAxis axis) {
    select(handle);
    held(handle) = true;
    window().drag.dragaxis = axis;
  }
};

TEST(Drag, WritesTheOneParameterOfItsHandleAndAxis) {
  struct {
    Line handle;
    DragAxis dragaxis;
    CellTable cell;
  } const rows[] = {
      {Line::nugget, DragAxis::unset, &Session::c0}, {Line::nugget, DragAxis::range, &Session::c0},
      {Line::nugget, DragAxis::sill, &Session::c0},  {Line::first, DragAxis::sill, &Session::c1},
      {Line::first, DragAxis::range, &Session::a1},  {Line::first, DragAxis::unset, &Session::a1},
      {Line::second, DragAxis::sill, &Session::c2},  {Line::second, DragAxis::range, &Session::a2},
      {Line::second, DragAxis::unset, &Session::a2}, {Line::third, DragAxis::sill, &Session::c3},
      {Line::third, DragAxis::range, &Session::a3},  {Line::third, DragAxis::unset, &Session::a3},
  };
  for (const auto& row : rows) {
    const std::string name = "handle " + std::to_string(indexOf(row.handle)) + ", axis " +
                             std::to_string(static_cast<int>(row.dragaxis));
    HeldBench bench(row.handle, row.dragaxis);
    const Session before = bench.session;
    // (2868 - 3120) / (600 - 3120) * 10 = 1, (3234 - 800) / 4868 * 100 = 50.
    bench.moveTo(3234, 2868);
    const bool isSill = row.dragaxis == DragAxis::sill || row.handle == Line::nugget;
    for (const CellTable cell : kCells) {
      const double expected = cell != row.cell ? (before.*cell)(kPair).number() : isSill ? 1 : 50;
      EXPECT_DOUBLE_EQ((bench.session.*cell)(kPair).number(), expected) << name;
    }
    const Field field = isSill ? Field::c0 : Field::a;
    EXPECT_EQ(bench.panel.text(field), isSill ? "1." : "50.") << name;
    EXPECT_TRUE(bench.session.dragging) << name;
    EXPECT_EQ(bench.drawings, 1) << name;
  }
}

TEST(Drag, StopsAtTheEdgesOfTheBox) {
  struct {
    const char* name;
    double x, y;
    double range, sill;
    double left, top;
  } const rows[] = {
      {"far below", 3234, 1e6, 50, 0, 3234, 3120},
      {"far above", 3234, -1e6, 50, 10, 3234, 600},
      {"far to the right", 1e6, 1860, 100, 5, 5668, 1860},
      // The drawing makes 0.00001 of a range of 0.
      {"far to the left", -1e6, 1860, 1e-05, 5, 800, 1860},
      {"one beyond the lower right corner", 5669, 3121, 100, 0, 5668, 3120},
      {"one beyond the upper left corner", 799, 599, 1e-05, 10, 800, 600},
  };
  for (const auto& row : rows) {
    for (const DragAxis axis : {DragAxis::range, DragAxis::sill}) {
      HeldBench bench(Line::first, axis);
      bench.moveTo(row.x, row.y);
      const double written =
          axis == DragAxis::range ? bench.range(Line::first) : bench.sill(Line::first);
      EXPECT_EQ(written, axis == DragAxis::range ? row.range : row.sill) << row.name;
      const auto& handle = bench.window().handles[1];
      EXPECT_EQ(handle.left, row.left) << row.name;
      EXPECT_EQ(handle.top, row.top) << row.name;
      EXPECT_TRUE(handle.visible) << row.name;
      // The mouse itself is kept as it is.
      EXPECT_EQ(bench.window().drag.cursorx, row.x) << row.name;
      EXPECT_EQ(bench.window().drag.cursory, row.y) << row.name;
    }
  }
}

TEST(Drag, ReachesTheEndsOfAnAxisBelowZeroExactly) {
  for (const double y : {1e6, -1e6}) {
    HeldBench bench(Line::first, DragAxis::sill);
    bench.session.ymin(kPair) = -4.4321;
    bench.session.ymax(kPair) = 12.9876;
    bench.moveTo(3234, y);
    // The texts are "-4.432", which is taken, and "12.988", which is above the axis: then the cell
    // stays, and the field shows it.
    EXPECT_EQ(bench.sill(Line::first), y > 0 ? -4.432 : 12.9876);
    EXPECT_EQ(bench.panel.text(Field::c0), y > 0 ? "-4.432" : "12.9876");
  }
}

TEST(Drag, CellTakesTheValueAndTheFieldItsText) {
  // (2489 - 3120) / -2520 * 10 = 2.50396825..., (2020 - 800) / 4868 * 100 = 25.0616269...
  struct {
    DragAxis dragaxis;
    bool selected;
    CellTable cell;
    double value;
    Field field;
    const char* text;
  } const rows[] = {
      {DragAxis::sill, false, &Session::c1, 631.0 / 252, Field::c0, "2.504"},
      {DragAxis::sill, true, &Session::c1, 2.504, Field::c0, "2.504"},
      {DragAxis::range, false, &Session::a1, 1220.0 / 48.68, Field::a, "25.062"},
      {DragAxis::range, true, &Session::a1, 25.062, Field::a, "25.062"},
  };
  for (const auto& row : rows) {
    HeldBench bench(Line::first, row.dragaxis);
    // The field's own handler stores what it reads for the selected line.
    if (!row.selected) bench.session.sel.reset();
    bench.moveTo(2020, 2489);
    EXPECT_DOUBLE_EQ((bench.session.*row.cell)(kPair).number(), row.value);
    EXPECT_EQ(bench.panel.text(row.field), row.text);
  }
}

TEST(Drag, GivesZeroAsABarePoint) {
  HeldBench bench(Line::nugget, DragAxis::unset);
  bench.moveTo(2400, 4000);
  EXPECT_EQ(bench.panel.text(Field::c0), ".");
  EXPECT_EQ(bench.sill(Line::nugget), 0);
}

TEST(Drag, MovesPassAFreeHandleBy) {
  DragBench bench;
  bench.session.atyped(kPair) = true;
  bench.moveTo(2000, 1000.5);
  EXPECT_TRUE(bench.window().calls.empty());
  EXPECT_TRUE(bench.panel.calls.empty());
  EXPECT_FALSE(bench.session.dragging);
  EXPECT_TRUE(bench.session.atyped(kPair));
  EXPECT_EQ(bench.window().drag.cursorx, 2000);
  EXPECT_EQ(bench.window().drag.cursory, 1000.5F);
}

TEST(Drag, MovesRedrawsAndShowsTheHandleInThisOrder) {
  HeldBench bench(Line::second, DragAxis::range);
  bench.session.atyped(kPair) = true;
  bench.moveTo(3234, 1860);
  EXPECT_EQ(bench.window().calls, (Calls{"move 2 3234 1860", "draw", "Line1 at 3234",
                                         "Line2 at 1860", "handle 2 shown"}));
  // The drag owns the range, or the field would not have redrawn.
  EXPECT_FALSE(bench.session.atyped(kPair));
}

TEST(Drag, KeepsShowmodelFromWritingBack) {
  HeldBench bench(Line::first, DragAxis::sill);
  bench.panel.setText(Field::a, "33");
  bench.session.a1(kPair) = 44;
  bench.moveTo(3234, 1860);
  EXPECT_EQ(bench.panel.text(Field::a), "33");
  EXPECT_EQ(bench.panel.text(Field::c0), "5.");
}

TEST(Drag, MoveOverAHandleCountsFromItsCorner) {
  HeldBench bench(Line::first, DragAxis::range);
  bench.window().handles[1].left = 2000;
  bench.window().handles[1].top = 1500;
  estru_MouseMove(bench.fit, bench.windows, bench.window(), Line::first, 17, 30.5);
  EXPECT_EQ(bench.window().drag.cursorx, 2017);
  EXPECT_EQ(bench.window().drag.cursory, 1530.5F);
  EXPECT_EQ(bench.range(Line::first), 25);
  EXPECT_EQ(bench.window().handles[1].left, 2017);
  EXPECT_EQ(bench.window().handles[1].top, 1530.5);
  // Once more at the same place of the handle: it runs ahead of the mouse by no more than that.
  estru_MouseMove(bench.fit, bench.windows, bench.window(), Line::first, 0, 0);
  EXPECT_EQ(bench.range(Line::first), 25);
}

TEST(Drag, AHandleOverWhichTheMouseMovesNeedNotBeTheHeldOne) {
  HeldBench bench(Line::first, DragAxis::range);
  bench.window().handles[3].left = 3000;
  bench.window().handles[3].top = 1500;
  estru_MouseMove(bench.fit, bench.windows, bench.window(), Line::third, 234, 0);
  EXPECT_EQ(bench.range(Line::first), 50);
  EXPECT_EQ(bench.window().handles[3].left, 3000);
}

TEST(Drag, AllHeldHandlesFollow) {
  DragBench bench;
  bench.select(Line::third);
  bench.held(Line::first) = bench.held(Line::third) = true;
  bench.window().drag.dragaxis = DragAxis::sill;
  bench.moveTo(3234, 1860);
  // The text of the second one is that of the first and runs no handler, but its cell is written.
  EXPECT_EQ(bench.sill(Line::first), 5);
  EXPECT_EQ(bench.sill(Line::third), 5);
  EXPECT_EQ(bench.sill(Line::second), 5);
  EXPECT_EQ(bench.sill(Line::nugget), 2);
  for (const Line handle : {Line::first, Line::third}) {
    EXPECT_EQ(bench.window().handles.at(indexOf(handle)).left, 3234);
    EXPECT_TRUE(bench.window().handles.at(indexOf(handle)).visible);
  }
  EXPECT_FALSE(bench.window().handles[2].visible);
}

TEST(Drag, OfASillIsSeenAtOnceAfterOneWasTyped) {
  HeldBench bench(Line::first, DragAxis::sill);
  bench.session.c0typed(kPair) = true;
  bench.moveTo(3234, 1860);
  EXPECT_EQ(bench.sill(Line::first), 5);
  EXPECT_EQ(bench.drawings, 1);
  bench.moveTo(3000, 1860);
  EXPECT_EQ(bench.drawings, 1) << "the sill is the same";
  EXPECT_TRUE(bench.session.c0typed(kPair)) << "the field still drives";
}

TEST(Drag, BoxIsInsideTheBorderOfThePicture) {
  HeldBench bench(Line::first, DragAxis::range);
  bench.window().pictureBorder = 30;  // the box ends at 6408 - 800 and at 3660 - 600
  bench.moveTo(90000, 90000);
  EXPECT_EQ(bench.window().handles[1].left, 5608);
  EXPECT_EQ(bench.window().handles[1].top, 3060);
  EXPECT_EQ(bench.range(Line::first), 100);
}

TEST(Drag, BoxAndParameterAreThoseOfTheCurrentPair) {
  HeldBench bench(Line::first, DragAxis::range);
  constexpr Pair kOther{2, 1};
  MemoryPlotWindow& other = bench.window(kOther);
  other.setPictureSize(2000, 1700);  // its box goes from 800 to 1200 and from 600 to 1100
  other.isVisible = true;
  bench.session.setCurrent(kOther);
  bench.session.xmax(kOther) = 40;
  bench.session.atyped(kOther) = bench.session.atyped(kPair) = true;
  bench.moveTo(900, 5000);
  EXPECT_EQ(bench.session.a1(kOther).number(), 10);  // 100 / 400 * 40
  EXPECT_EQ(bench.range(Line::first), 25);
  EXPECT_FALSE(bench.session.atyped(kOther));
  EXPECT_TRUE(bench.session.atyped(kPair));
  // The handle that moves is this window's own.
  EXPECT_EQ(bench.window().handles[1].left, 900);
  EXPECT_EQ(bench.window().handles[1].top, 1100);
  EXPECT_FALSE(other.handles[1].visible);
}

TEST(Drag, HandleStaysHiddenInABoxOfNoSize) {
  HeldBench bench(Line::first, DragAxis::range);
  bench.session.atyped(kPair) = true;
  bench.panel.setText(Field::a, "1");
  bench.window().setPictureSize(1500, 3720);  // from 800 to 700
  bench.moveTo(750, 1860);
  // (800 - 800) / (700 - 800) * 100
  EXPECT_EQ(bench.panel.text(Field::a), ".");
  EXPECT_EQ(bench.window().handles[1].left, 800);
  EXPECT_FALSE(bench.window().handles[1].visible);
}

TEST(Drag, FaultsPassToTheCaller) {
  struct {
    const char* name;
    void (*spoil)(DragBench& bench);
  } const rows[] = {
      {"no width", [](DragBench& bench) { bench.window().setPictureSize(1600, 3720); }},
      {"no pair", [](DragBench& bench) { bench.session.curdir = -1; }},
      {"overflow", [](DragBench& bench) { bench.session.xmax(kPair) = HUGE_VAL; }},
  };
  for (const auto& row : rows) {
    HeldBench bench(Line::first, DragAxis::range);
    row.spoil(bench);
    EXPECT_THROW(bench.moveTo(3000, 2000), Fault) << row.name;
  }
}

TEST(Drag, PlaceBeyondSinglePrecisionIsAFault) {
  DragBench bench;
  EXPECT_THROW(bench.moveTo(0, 1e39), Fault);
  EXPECT_THROW(bench.moveTo(0, -1e39), Fault);
}

TEST(Drag, LeftButtonNeverChangesASillNorTheRightOneARange) {
  for (const MouseButton button : {MouseButton::left, MouseButton::right}) {
    for (const Line handle : kStructures) {
      DragBench bench;
      Picture4_MouseUp(bench.fit.session, bench.fit.plotter, bench.fit.hints, bench.window());
      const double sill = bench.sill(handle), range = bench.range(handle);
      bench.press(handle, button);
      bench.moveTo(1000, 700);
      bench.moveTo(5000, 3000);
      bench.release(handle, button);
      estru_Click(bench.fit);
      const bool isLeft = button == MouseButton::left;
      EXPECT_EQ(bench.sill(handle) == sill, isLeft) << indexOf(handle);
      EXPECT_EQ(bench.range(handle) == range, !isLeft) << indexOf(handle);
      EXPECT_FALSE(bench.session.dragging);
    }
  }
}

TEST(Drag, NuggetLeavesItsColumnAndReturnsToIt) {
  DragBench bench;
  Picture4_MouseUp(bench.fit.session, bench.fit.plotter, bench.fit.hints, bench.window());
  EXPECT_EQ(bench.window().handles[0].left, 2400);
  bench.press(Line::nugget);
  bench.moveTo(4000, 1860);
  EXPECT_EQ(bench.window().handles[0].left, 4000);
  EXPECT_EQ(bench.sill(Line::nugget), 5);
  bench.moveTo(1000, 1860);
  EXPECT_EQ(bench.window().handles[0].left, 1000);
  EXPECT_EQ(bench.sill(Line::nugget), 5);
  bench.release(Line::nugget);
  Picture4_MouseUp(bench.fit.session, bench.fit.plotter, bench.fit.hints, bench.window());
  EXPECT_EQ(bench.window().handles[0].left, 2400);
  EXPECT_EQ(bench.window().handles[0].top, 1860);
}

}  // namespace
}  // namespace zevfit
