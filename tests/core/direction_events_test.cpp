#include <gtest/gtest.h>

#include "plot/window/direction_events.h"
#include "plot/window/grip_events.h"
#include "plot/window/placing.h"
#include "tests/support/drag_bench.h"

namespace zevfit {
namespace {

TEST(DirectionEvents, LoadHidesAllOverlaysAndForgetsTheMouse) {
  MemoryPlotWindow window;
  window.setCaption("01,02");
  window.pen() = {2, LineStyle::dotted, 7};
  window.drag = {1, 2, DragAxis::sill};
  window.setSize(7000, 6000);
  window.setPictureSize(1, 1);
  for (auto& handle : window.handles) handle = {1, 2, 3, true, false};
  for (auto& guide : window.guides) guide = {1, 2, 3, true, LineStyle::solid};
  window.tag = {1, 2, "7", true};

  Form_Load(window);
  EXPECT_EQ(window.caption(), "");
  EXPECT_EQ(window.width(), 5544);
  EXPECT_EQ(window.height(), 3300);
  EXPECT_EQ(window.pictureWidth(), 5436);   // 5544 - 108
  EXPECT_EQ(window.pictureHeight(), 3168);  // 3300 - 132
  EXPECT_EQ(window.pen().width, 1);
  EXPECT_EQ(window.pen().style, LineStyle::solid);
  EXPECT_EQ(window.drag.cursorx, 0);
  EXPECT_EQ(window.drag.cursory, 0);
  EXPECT_EQ(window.drag.dragaxis, DragAxis::unset);
  for (const auto& handle : window.handles) {
    EXPECT_FALSE(handle.visible);
    EXPECT_TRUE(handle.border);
  }
  for (const auto& guide : window.guides) {
    EXPECT_FALSE(guide.visible);
    EXPECT_EQ(guide.style, LineStyle::dotted);
  }
  EXPECT_FALSE(window.tag.visible);
  EXPECT_EQ(window.tag.caption, "");
}

TEST(DirectionEvents, ClickBesideThePictureFreesAndHidesTheHandles) {
  DragBench bench;
  bench.holdAll();
  bench.session.dragging = true;
  Form_Click(bench.fit.session, bench.window());
  EXPECT_EQ(bench.session.dragsel, (std::array<bool, 4>{}));
  EXPECT_FALSE(bench.session.dragging);
  EXPECT_EQ(bench.window().calls, (Calls{"handle 0 hidden", "border 0 on", "handle 1 hidden",
                                         "border 1 on", "handle 2 hidden", "border 2 on",
                                         "handle 3 hidden", "border 3 on", "guides hidden"}));
}

TEST(DirectionEvents, LostFocusHidesHandlesAndGuidesAndFreesNothing) {
  DragBench bench;
  Picture4_MouseUp(bench.fit.session, bench.fit.plotter, bench.fit.hints, bench.window());
  bench.press(Line::first);
  bench.forget();
  Picture4_LostFocus(bench.window());
  EXPECT_EQ(bench.window().calls, (Calls{"handle 0 hidden", "handle 1 hidden", "handle 2 hidden",
                                         "handle 3 hidden", "guides hidden"}));
  EXPECT_TRUE(bench.held(Line::first));
  EXPECT_TRUE(bench.session.dragging);
  EXPECT_FALSE(bench.window().handles[1].border);
}

TEST(DirectionEvents, HandlesReturnAtTheNextReleaseOnThePlot) {
  DragBench bench;
  Picture4_MouseUp(bench.fit.session, bench.fit.plotter, bench.fit.hints, bench.window());
  Picture4_LostFocus(bench.window());
  Picture4_MouseUp(bench.fit.session, bench.fit.plotter, bench.fit.hints, bench.window());
  for (const auto& handle : bench.window().handles) EXPECT_TRUE(handle.visible);
}

TEST(DirectionEvents, TagHidesAtItsClickAndAtANewSizeOfThePicture) {
  MemoryPlotWindow window;
  for (const auto event : {Label1_Click, Picture4_Resize}) {
    window.tag.visible = true;
    window.calls.clear();
    event(window);
    EXPECT_FALSE(window.tag.visible);
    EXPECT_EQ(window.calls, Calls{"tag hidden"});
  }
}

TEST(DirectionEvents, ClickOnAHandleRedraws) {
  DragBench bench;
  estru_Click(bench.fit);
  EXPECT_EQ(bench.window().calls, Calls{"draw"});
}

}  // namespace
}  // namespace zevfit
