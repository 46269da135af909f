#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "plot/window/grip_events.h"
#include "plot/window/placing.h"
#include "session/fault.h"
#include "session/line.h"
#include "tests/support/drag_bench.h"

namespace zevfit {
namespace {

constexpr const char* kButtonNames[] = {"left", "right", "other"};
constexpr MouseButton kButtons[] = {MouseButton::left, MouseButton::right, MouseButton::other};

std::string nameOf(Line handle, MouseButton button) {
  return "handle " + std::to_string(indexOf(handle)) + ", button " +
         kButtonNames[static_cast<std::size_t>(button)];
}

/// The handles are out.
struct GripBench : DragBench {
  explicit GripBench(DragAxis lastAxis = DragAxis::unset) {
    Picture4_MouseUp(fit.session, fit.plotter, fit.hints, window());
    window().drag.dragaxis = lastAxis;
    forget();
  }
};

constexpr DragAxis kAxes[] = {DragAxis::unset, DragAxis::range, DragAxis::sill};

struct GripRow {
  Line handle;
  MouseButton button;
  bool line1, line2;               ///< which guide is on show afterwards, where both were before
  std::optional<DragAxis> chosen;  ///< nothing: the axis of the last drag stays
};
constexpr GripRow kGripRows[] = {
    {Line::nugget, MouseButton::left, false, true, {}},
    {Line::nugget, MouseButton::right, false, true, {}},
    {Line::nugget, MouseButton::other, false, true, {}},
    {Line::first, MouseButton::left, true, false, DragAxis::range},
    {Line::first, MouseButton::right, false, true, DragAxis::sill},
    {Line::first, MouseButton::other, true, true, {}},
    {Line::second, MouseButton::left, true, false, DragAxis::range},
    {Line::second, MouseButton::right, false, true, DragAxis::sill},
    {Line::second, MouseButton::other, true, true, {}},
    {Line::third, MouseButton::left, true, false, DragAxis::range},
    {Line::third, MouseButton::right, false, true, DragAxis::sill},
    {Line::third, MouseButton::other, true, true, {}},
};

// Placed at the ranges 25, 50, 75 and the sills 2, 2.5, 5, 7.5; structure 1 less its width of 300.
constexpr double kLefts[] = {2400, 1717, 2834, 3851};
constexpr double kTops[] = {2616, 2490, 1860, 1230};

void expectHeld(GripBench& bench, const GripRow& row, const std::string& name) {
  const std::size_t at = indexOf(row.handle);
  MemoryPlotWindow& window = bench.window();
  for (const Line handle : kLines) {
    EXPECT_EQ(bench.held(handle), handle == row.handle) << name;
    EXPECT_EQ(window.handles.at(indexOf(handle)).border, handle != row.handle) << name;
  }
  EXPECT_TRUE(bench.session.dragging) << name;
  EXPECT_EQ(window.line(Guide::Line1).at, kLefts[at]) << name;
  EXPECT_EQ(window.line(Guide::Line2).at, kTops[at]) << name;
  EXPECT_EQ(window.line(Guide::Line1).visible, row.line1) << name;
  EXPECT_EQ(window.line(Guide::Line2).visible, row.line2) << name;
  EXPECT_EQ(bench.panel.line(), row.handle) << name;
  EXPECT_EQ(bench.session.sel, row.handle) << name;
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

TEST(Grip, ChoosesTheAxisOfTheDragOrLeavesThatOfTheLastOne) {
  for (const GripRow& row : kGripRows) {
    for (const DragAxis last : kAxes) {
      for (const bool press : {true, false}) {
        GripBench bench(last);
        press ? bench.press(row.handle, row.button) : bench.release(row.handle, row.button);
        EXPECT_EQ(bench.window().drag.dragaxis, row.chosen.value_or(last))
            << nameOf(row.handle, row.button) << (press ? ", press" : ", release");
      }
    }
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
  for (const Line handle : kLines) {
    for (const MouseButton button : kButtons) {
      GripBench bench(DragAxis::sill);
      bench.session.dragging = true;
      bench.held(handle) = true;
      bench.press(handle, button);
      const std::string name = nameOf(handle, button);
      EXPECT_FALSE(bench.held(handle)) << name;
      EXPECT_FALSE(bench.session.dragging) << name;
      EXPECT_EQ(bench.window().calls, Calls{"border " + std::to_string(indexOf(handle)) + " on"})
          << name;
      EXPECT_EQ(bench.window().drag.dragaxis, DragAxis::sill) << name;
      EXPECT_EQ(bench.panel.line(), std::nullopt) << name;
    }
  }
}

TEST(Release, FreesAHeldHandleAndLeavesSolidGuidesInPlace) {
  for (const Line handle : kLines) {
    for (const MouseButton button : kButtons) {
      GripBench bench(DragAxis::sill);
      bench.session.dragging = true;
      bench.held(handle) = true;
      for (auto& guide : bench.window().guides) guide = {17, 11, 12, true, LineStyle::dotted};
      bench.release(handle, button);
      const std::string name = nameOf(handle, button);
      EXPECT_FALSE(bench.held(handle)) << name;
      EXPECT_FALSE(bench.session.dragging) << name;
      EXPECT_EQ(bench.window().calls, (Calls{"border " + std::to_string(indexOf(handle)) + " on",
                                             "Line1 solid", "Line2 solid"}))
          << name;
      for (const auto& guide : bench.window().guides) {
        EXPECT_TRUE(guide.visible) << name;
        EXPECT_EQ(guide.at, 17) << name;
      }
      EXPECT_EQ(bench.window().drag.dragaxis, DragAxis::sill) << name;
      EXPECT_EQ(bench.panel.line(), std::nullopt) << name;
    }
  }
}

TEST(Press, GoesInThisOrder) {
  GripBench bench;
  bench.press(Line::second, MouseButton::right);
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
  bench.session.setCurrent({2, 1});
  bench.press(Line::first);
  EXPECT_EQ(bench.session.current(), kPair);
}

TEST(Release, LeavesTheCurrentPairAlone) {
  GripBench bench;
  bench.session.setCurrent({2, 1});
  bench.release(Line::first);
  bench.release(Line::first);
  EXPECT_EQ(bench.session.current(), (Pair{2, 1}));
}

TEST(Press, StopsAtACaptionWithoutAPair) {
  for (const char* caption : {"", "Formod", "00,01", "01,00", "-1,02", "01,-2", "xx,02"}) {
    for (const bool held : {false, true}) {
      GripBench bench;
      bench.window().title = caption;
      bench.held(Line::first) = held;
      bench.press(Line::first);
      EXPECT_TRUE(bench.session.curvar < 1 || bench.session.curdir < 1) << caption;
      EXPECT_EQ(bench.held(Line::first), held) << caption;
      EXPECT_TRUE(bench.window().calls.empty()) << caption;
      EXPECT_FALSE(bench.session.dragging) << caption;
    }
  }
}

TEST(Press, FaultOfAPairOutsideTheTablesPassesToTheCaller) {
  GripBench bench;
  bench.window().title = "42,02";
  EXPECT_THROW(bench.press(Line::first), Fault);
  // What comes before the option's handler stands.
  EXPECT_TRUE(bench.held(Line::first));
  EXPECT_FALSE(bench.window().handles[1].border);
}

TEST(Press, AndReleaseToggleTheHold) {
  GripBench bench;
  struct {
    const char* name;
    bool press;
    bool held;
  } const steps[] = {
      {"press", true, true},
      {"release", false, false},
      {"second press", true, true},
      {"press while held", true, false},
      {"release while free", false, true},
      {"last press", true, false},
  };
  for (const auto& step : steps) {
    step.press ? bench.press(Line::second) : bench.release(Line::second);
    EXPECT_EQ(bench.held(Line::second), step.held) << step.name;
    EXPECT_EQ(bench.session.dragging, step.held) << step.name;
    EXPECT_EQ(bench.window().handles[2].border, !step.held) << step.name;
  }
}

TEST(Release, AfterAPressThatFreedLeavesAHandleThatFollowsWithoutAButton) {
  GripBench bench;
  bench.press(Line::second);
  bench.press(Line::second);
  bench.release(Line::second);
  bench.moveTo(2017, 1860);
  EXPECT_EQ(bench.range(Line::second), 25);
  EXPECT_EQ(bench.window().handles[2].left, 2017);
}

TEST(Release, GuidesStaySolidFromThenOn) {
  GripBench bench;
  EXPECT_EQ(bench.window().line(Guide::Line1).style, LineStyle::dotted);
  bench.press(Line::first);
  bench.release(Line::first);
  bench.press(Line::first);
  for (const auto& guide : bench.window().guides) EXPECT_EQ(guide.style, LineStyle::solid);
}

TEST(Release, OfOneOfTwoHeldHandlesEndsTheDragForBoth) {
  GripBench bench;
  bench.press(Line::first);
  bench.press(Line::second);
  bench.release(Line::second);
  EXPECT_FALSE(bench.session.dragging);
  EXPECT_TRUE(bench.held(Line::first));
  // The one that is still held follows the next move, and the drag is on again.
  bench.moveTo(2017, 1860);
  EXPECT_TRUE(bench.session.dragging);
  EXPECT_EQ(bench.window().handles[1].left, 2017);
  EXPECT_EQ(bench.window().handles[2].left, 2834);
}

TEST(Press, SelectsTheLineOnlyWhereItIsNotSelected) {
  GripBench bench;
  bench.press(Line::first);
  bench.release(Line::first);
  bench.forget();
  bench.press(Line::first);
  // The option is on already, so that its handler does not run.
  EXPECT_EQ(bench.panel.calls, Calls{"est2 = 1"});
}

}  // namespace
}  // namespace zevfit
