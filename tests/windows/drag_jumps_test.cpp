// Drags in leaps, as a slow machine or a fast hand makes them: they move a handle and its value,
// and the plot window never.
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/two_plots.h"

namespace zevfit::test {
namespace {

class DragJumps : public testing::Test, protected TwoPlots {
 protected:
  DragJumps() {
    area().setActiveSubWindow(&plot(1));
    plot(1).setSize(6576, 3852);
    program().window().plotvariogram();
    frame_ = frame();
  }

  QSize content() { return plot(1).widget()->size(); }
  QRect frame() { return static_cast<QWidget&>(plot(1)).geometry(); }
  double range() { return session().a1({1, 1}).number(); }
  double sill(int line) {
    return (line == 0 ? session().c0({1, 1}) : session().c1({1, 1})).number();
  }

  /// Of the box of 53.3 to 377.9 by 40 to 208 pixels, on axes to 30 and 2.12.
  static double rangeAt(int x) { return std::clamp((x * 15.0 - 800) / 4868 * 30, 0.0, 30.0); }
  static double sillAt(int y) { return std::clamp((3120 - y * 15.0) / 2520 * 2.12, 0.0, 2.12); }

  /// Takes hold of a handle and leaps along; where the mouse ends, in pixels of the picture.
  void dragAlong(int line, Qt::MouseButton button, const std::vector<QPoint>& stops) {
    click(inPicture(1, {20, 20}));
    ASSERT_TRUE(handle(1, line).isVisible()) << line;
    press(onHandle(1, line), button);
    for (const QPoint stop : stops) {
      move(inPicture(1, stop));
      ASSERT_EQ(frame(), frame_) << stop.x() << " " << stop.y();
    }
    release(inPicture(1, stops.back()), button);
    ASSERT_FALSE(holdsAny());
    ASSERT_EQ(frame(), frame_);
  }

  QRect frame_;
};

// Behind a release a range stands on the nearest place of its slider, of which 600 has 32000.

/// Leaps of 90 pixels and more that pass an edge of the picture and the frame around it, and end
/// in the picture.
const std::vector<std::vector<QPoint>> kWays{
    {{100, 100}, {5, 100}, {-95, 100}, {20, 120}, {120, 120}},                  // left
    {{330, 100}, {428, 100}, {520, 110}, {426, 90}, {230, 100}},                // right
    {{200, 120}, {200, 4}, {200, -90}, {210, 2}, {210, 100}},                   // top
    {{200, 140}, {200, 244}, {200, 340}, {190, 246}, {190, 110}},               // bottom
    {{300, 150}, {426, 245}, {520, 340}, {428, 243}, {330, 150}},               // a corner
    {{90, 100}, {-2, -4}, {-100, -100}, {3, 3}, {150, 93}},                     // the other one
    {{5, 5}, {425, 5}, {425, 243}, {5, 243}, {5, 5}, {428, 246}, {150, 150}}};  // all around

TEST_F(DragJumps, LeaveTheWindowAsItIsAtEveryEdgeWithBothButtons) {
  for (const auto& way : kWays)
    for (const auto& next : kWays) {
      ASSERT_NO_FATAL_FAILURE(dragAlong(1, Qt::RightButton, way));
      EXPECT_NEAR(sill(1), sillAt(way.back().y()), 0.001);
      const double before = sill(1);
      ASSERT_NO_FATAL_FAILURE(dragAlong(1, Qt::LeftButton, next));
      EXPECT_NEAR(range(), rangeAt(next.back().x()), 0.011);
      EXPECT_EQ(sill(1), before);
      ASSERT_NO_FATAL_FAILURE(dragAlong(0, Qt::LeftButton, way));
      EXPECT_NEAR(sill(0), sillAt(way.back().y()), 0.001);
    }
  EXPECT_EQ(plot(1).width(), 6576);
  EXPECT_EQ(plot(1).height(), 3852);
}

// A leap of the mouse that counted twice, from where the handle is behind it, would end on the
// frame; the next press of the left button would then take hold of that.
TEST_F(DragJumps, DoNotCountTwice) {
  const QPoint corner(content().width(), content().height()), middle(corner / 2);
  struct {
    QPoint edge, out;
  } const rows[] = {{{0, middle.y()}, {-1, 0}}, {{corner.x(), middle.y()}, {1, 0}},
                    {{middle.x(), 0}, {0, -1}}, {{middle.x(), corner.y()}, {0, 1}},
                    {{0, 0}, {-1, -1}},         {corner, {1, 1}},
                    {{0, corner.y()}, {-1, 1}}, {{corner.x(), 0}, {1, -1}}};
  for (const auto& row : rows)
    for (int outside = 0; outside <= 40; ++outside)
      for (const auto button : {Qt::RightButton, Qt::LeftButton}) {
        const QPoint stop = row.edge + row.out * (outside - 90);
        ASSERT_NO_FATAL_FAILURE(dragAlong(1, button, {stop - row.out * 90, stop}));
        // The mouse stays where it is between the two drags.
        QTest::mousePress(window(), Qt::LeftButton, {}, inPicture(1, stop));
        for (const QPoint by : {QPoint(95, 0), QPoint(-95, 0), QPoint(0, 95), QPoint(0, -95)}) {
          move(inPicture(1, stop + by));
          ASSERT_EQ(frame(), frame_) << row.out.x() << " " << row.out.y() << " " << outside;
        }
        release(inPicture(1, stop));
        ASSERT_FALSE(holdsAny());
      }
}

TEST_F(DragJumps, OfAHandleHeldWithoutAButtonLeaveTheWindowToo) {
  click(inPicture(1, {20, 20}));
  doubleClick(onHandle(1, 1));
  ASSERT_TRUE(session().dragsel[1]);
  for (const auto& way : kWays)
    for (const QPoint stop : way) {
      move(inPicture(1, stop));
      ASSERT_EQ(frame(), frame_);
    }
  doubleClick(onHandle(1, 1));
  EXPECT_FALSE(holdsAny());
  ASSERT_NO_FATAL_FAILURE(dragAlong(1, Qt::LeftButton, kWays.front()));
}

// Not even a drag of the picture itself, with both buttons down, takes hold of the frame.
TEST_F(DragJumps, OfThePictureLeaveTheWindowToo) {
  for (const auto& way : kWays) {
    press(inPicture(1, {60, 230}), Qt::RightButton);
    for (const QPoint stop : way) move(inPicture(1, stop));
    QTest::mousePress(window(), Qt::LeftButton, {}, inPicture(1, way.back()));
    for (const QPoint stop : way) {
      move(inPicture(1, stop));
      ASSERT_EQ(frame(), frame_);
    }
    release(inPicture(1, way.back()), Qt::LeftButton);
    release(inPicture(1, way.back()), Qt::RightButton);
  }
}

}  // namespace
}  // namespace zevfit::test
