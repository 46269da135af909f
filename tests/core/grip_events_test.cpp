#include <gtest/gtest.h>

#include <string>

#include "session/fault.h"
#include "tests/support/drag_bench.h"

namespace zevfit {
namespace {

constexpr const char* kButtonNames[] = {"left", "right", "other"};
constexpr MouseButton kButtons[] = {MouseButton::left, MouseButton::right, MouseButton::other};

std::string nameOf(int handle, MouseButton button) {
  return "handle " + std::to_string(handle) + ", button " +
         kButtonNames[static_cast<std::size_t>(button)];
}

/// The handles are out; the axis of the last drag is none that a press would choose.
struct GripBench : DragBench {
  static constexpr std::int16_t kLastAxis = 9;
  GripBench() {
    Picture4_MouseUp(fit, window());
    window().drag.dragaxis = kLastAxis;
    forget();
  }
};

struct GripRow {
  int handle;
  MouseButton button;
  bool line1, line2;  ///< which guide is on show afterwards, where both were before
  std::int16_t dragaxis;
};
constexpr std::int16_t kLast = GripBench::kLastAxis;
constexpr GripRow kGripRows[] = {
    {0, MouseButton::left, false, true, kLast},  {0, MouseButton::right, false, true, kLast},
    {0, MouseButton::other, false, true, kLast}, {1, MouseButton::left, true, false, 1},
    {1, MouseButton::right, false, true, 2},     {1, MouseButton::other, true, true, kLast},
    {2, MouseButton::left, true, false, 1},      {2, MouseButton::right, false, true, 2},
    {2, MouseButton::other, true, true, kLast},  {3, MouseButton::left, true, false, 1},
    {3, MouseButton::right, false, true, 2},     {3, MouseButton::other, true, true, kLast},
};

// Placed at the ranges 25, 50, 75 and the sills 2, 2.5, 5, 7.5; structure 1 less its width of 300.
constexpr double kLefts[] = {2400, 1717, 2834, 3851};
constexpr double kTops[] = {2616, 2490, 1860, 1230};

void expectHeld(GripBench& bench, const GripRow& row, const std::string& name) {
  MemoryPlotWindow& window = bench.window();
  for (int handle = 0; handle < kLines; ++handle) {
    EXPECT_EQ(bench.held(handle), handle == row.handle ? 1 : 0) << name;
    EXPECT_EQ(window.handles.at(static_cast<std::size_t>(handle)).border, handle != row.handle)
        << name;
  }
  EXPECT_EQ(bench.session.dragging, 1) << name;
  EXPECT_EQ(window.line(Guide::Line1).at, kLefts[row.handle]) << name;
  EXPECT_EQ(window.line(Guide::Line2).at, kTops[row.handle]) << name;
  EXPECT_EQ(window.line(Guide::Line1).visible, row.line1) << name;
  EXPECT_EQ(window.line(Guide::Line2).visible, row.line2) << name;
  EXPECT_EQ(window.drag.dragaxis, row.dragaxis) << name;
  EXPECT_EQ(bench.panel.line(), row.handle) << name;
  EXPECT_EQ(bench.session.sel.at(static_cast<std::size_t>(row.handle)), 1) << name;
}

TEST(Press, TakesHoldOfAFreeHandleByItsButton) {
  for (const GripRow& row : kGripRows) {
    GripBench bench;
    for (auto& guide : bench.window().guides) guide.visible = true;
    bench.press(row.handle, row.button);
    const std::string name = nameOf(row.handle, row.button);
    expectHeld(bench, row, name);
    EXPECT_EQ(bench.window().line(Guide::Line1).from, 600) << name;
    EXPECT_EQ(bench.window().line(Guide::Line1).to, 3120) << name;  // 3720 - 600
    EXPECT_EQ(bench.window().line(Guide::Line2).from, 800) << name;
    EXPECT_EQ(bench.window().line(Guide::Line2).to, 5668) << name;  // 6468 - 800
  }
}

TEST(Release, TakesUpAFreeHandleAsAPressDoesButForTheLengthsOfTheGuides) {
  for (const GripRow& row : kGripRows) {
    GripBench bench;
    for (auto& guide : bench.window().guides) guide = {0, 11, 12, true, LineStyle::dotted};
    bench.release(row.handle, row.button);
    const std::string name = nameOf(row.handle, row.button);
    expectHeld(bench, row, name);
    for (const auto& guide : bench.window().guides) {
      EXPECT_EQ(guide.from, 11) << name;
      EXPECT_EQ(guide.to, 12) << name;
      EXPECT_EQ(guide.style, LineStyle::dotted) << name;
    }
  }
}

TEST(Press, FreesAHeldHandleByAnyButton) {
  for (int handle = 0; handle < kLines; ++handle) {
    for (const MouseButton button : kButtons) {
      GripBench bench;
      bench.session.dragging = 1;
      bench.held(handle) = 1;
      bench.press(handle, button);
      const std::string name = nameOf(handle, button);
      EXPECT_EQ(bench.held(handle), 0) << name;
      EXPECT_EQ(bench.session.dragging, 0) << name;
      EXPECT_EQ(bench.window().calls, Calls{"border " + std::to_string(handle) + " on"}) << name;
      EXPECT_EQ(bench.window().drag.dragaxis, kLast) << name;
      EXPECT_EQ(bench.panel.line(), -1) << name;
    }
  }
}

TEST(Release, FreesAHeldHandleAndLeavesSolidGuidesInPlace) {
  for (int handle = 0; handle < kLines; ++handle) {
    for (const MouseButton button : kButtons) {
      GripBench bench;
      bench.session.dragging = 1;
      bench.held(handle) = 1;
      for (auto& guide : bench.window().guides) guide = {17, 11, 12, true, LineStyle::dotted};
      bench.release(handle, button);
      const std::string name = nameOf(handle, button);
      EXPECT_EQ(bench.held(handle), 0) << name;
      EXPECT_EQ(bench.session.dragging, 0) << name;
      EXPECT_EQ(bench.window().calls,
                (Calls{"border " + std::to_string(handle) + " on", "Line1 solid", "Line2 solid"}))
          << name;
      for (const auto& guide : bench.window().guides) {
        EXPECT_TRUE(guide.visible) << name;
        EXPECT_EQ(guide.at, 17) << name;
      }
      EXPECT_EQ(bench.window().drag.dragaxis, kLast) << name;
      EXPECT_EQ(bench.panel.line(), -1) << name;
    }
  }
}

TEST(Press, GoesInThisOrder) {
  GripBench bench;
  bench.press(2, MouseButton::right);
  // The field of the sill changes with the line, and redraws; that of the range counts as typed
  // since the handles came out.
  EXPECT_EQ(bench.window().calls,
            (Calls{"border 2 off", "Line1 at 2834", "Line2 at 1860", "Line1 from 600 to 3120",
                   "Line2 from 800 to 5668", "Line1 hidden", "Line2 shown", "draw"}));
  EXPECT_EQ(bench.panel.text(Field::c0), "5");
  EXPECT_EQ(bench.panel.text(Field::a), "50");
}

TEST(Press, MakesThePairOfTheWindowTheCurrentOne) {
  GripBench bench;
  bench.session.curvar = 2;
  bench.session.curdir = 1;
  bench.press(1);
  EXPECT_EQ(bench.session.curvar, kVariable);
  EXPECT_EQ(bench.session.curdir, kDirection);
}

TEST(Release, LeavesTheCurrentPairAlone) {
  GripBench bench;
  bench.session.curvar = 2;
  bench.session.curdir = 1;
  bench.release(1);
  bench.release(1);
  EXPECT_EQ(bench.session.curvar, 2);
  EXPECT_EQ(bench.session.curdir, 1);
}

TEST(Press, StopsAtACaptionWithoutAPair) {
  for (const char* caption : {"", "Formod", "00,01", "01,00", "-1,02", "01,-2", "xx,02"}) {
    for (const int held : {0, 1}) {
      GripBench bench;
      bench.window().title = caption;
      bench.held(1) = held;
      bench.press(1);
      EXPECT_TRUE(bench.session.curvar < 1 || bench.session.curdir < 1) << caption;
      EXPECT_EQ(bench.held(1), held) << caption;
      EXPECT_TRUE(bench.window().calls.empty()) << caption;
      EXPECT_EQ(bench.session.dragging, 0) << caption;
    }
  }
}

TEST(Press, FaultOfAPairOutsideTheTablesPassesToTheCaller) {
  GripBench bench;
  bench.window().title = "42,02";
  EXPECT_THROW(bench.press(1), Fault);
  // What comes before the option's handler stands.
  EXPECT_EQ(bench.held(1), 1);
  EXPECT_FALSE(bench.window().handles[1].border);
}

TEST(Press, AndReleaseToggleTheHold) {
  GripBench bench;
  struct {
    const char* name;
    bool press;
    int held;
  } const steps[] = {
      {"press", true, 1},
      {"release", false, 0},
      {"second press", true, 1},
      {"press while held", true, 0},
      {"release while free", false, 1},
      {"last press", true, 0},
  };
  for (const auto& step : steps) {
    step.press ? bench.press(2) : bench.release(2);
    EXPECT_EQ(bench.held(2), step.held) << step.name;
    EXPECT_EQ(bench.session.dragging, step.held) << step.name;
    EXPECT_EQ(bench.window().handles[2].border, step.held == 0) << step.name;
  }
}

TEST(Release, AfterAPressThatFreedLeavesAHandleThatFollowsWithoutAButton) {
  GripBench bench;
  bench.press(2);
  bench.press(2);
  bench.release(2);
  bench.moveTo(2017, 1860);
  EXPECT_EQ(bench.range(2), 25);
  EXPECT_EQ(bench.window().handles[2].left, 2017);
}

TEST(Release, GuidesStaySolidFromThenOn) {
  GripBench bench;
  EXPECT_EQ(bench.window().line(Guide::Line1).style, LineStyle::dotted);
  bench.press(1);
  bench.release(1);
  bench.press(1);
  for (const auto& guide : bench.window().guides) EXPECT_EQ(guide.style, LineStyle::solid);
}

TEST(Release, OfOneOfTwoHeldHandlesEndsTheDragForBoth) {
  GripBench bench;
  bench.press(1);
  bench.press(2);
  bench.release(2);
  EXPECT_EQ(bench.session.dragging, 0);
  EXPECT_EQ(bench.held(1), 1);
  // The one that is still held follows the next move, and the drag is on again.
  bench.moveTo(2017, 1860);
  EXPECT_EQ(bench.session.dragging, 1);
  EXPECT_EQ(bench.window().handles[1].left, 2017);
  EXPECT_EQ(bench.window().handles[2].left, 2834);
}

TEST(Press, SelectsTheLineOnlyWhereItIsNotSelected) {
  GripBench bench;
  bench.press(1);
  bench.release(1);
  bench.forget();
  bench.press(1);
  // The option is on already, so that its handler does not run.
  EXPECT_EQ(bench.panel.calls, Calls{"est2 = 1"});
}

}  // namespace
}  // namespace zevfit
