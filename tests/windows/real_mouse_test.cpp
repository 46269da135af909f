// The handles under a mouse that goes the whole way: through the window, which finds the control
// under it, moves the focus and lets a button that is down keep its control.
#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

#include "tests/support/model_lines.h"
#include "tests/support/program.h"
#include "tests/support/small_files.h"
#include "windows/formod.h"

namespace zevfit::test {
namespace {

// Distances to 30 and semivariances to 2 over a variance of 1: xmax 30, ymin 0, ymax 2.12. The
// picture of 6468 by 3720 twips has its box from 800 to 5668 across and from 600 to 3120 down, in
// pixels 53.3 to 377.9 and 40 to 208.
class RealMouse : public testing::Test {
 protected:
  RealMouse() : program_(folder_.path().toStdString()) {
    program_.openBytes(kTwoDirections);
    for (const std::int64_t direction : {1, 2}) {
      setNugget(session(), {1, direction}, 0.5);
      setStructure(session(), {1, direction}, Line::first, "S", 1, 15);
    }
    program_.window().plotvariogram();
  }

  Formod& plot() { return program_.control<Formod>("Formod"); }
  QWidget& part(const char* name) { return Program::find<QWidget>(plot(), name); }
  QWindow* window() { return program_.window().windowHandle(); }

  /// A place of a control as one of the main window.
  QPoint placeOf(QWidget& control, QPoint at) { return control.mapTo(&program_.window(), at); }
  QPoint inPicture(QPoint at) { return placeOf(part("Picture4"), at); }
  QPoint onHandle(int i) {
    QWidget& handle = part(qPrintable(QString("estru_%1").arg(i)));
    return placeOf(handle, QPoint(2, 2));
  }
  bool shown(int i) { return part(qPrintable(QString("estru_%1").arg(i))).isVisible(); }

  void press(QPoint at, Qt::MouseButton button) { QTest::mousePress(window(), button, {}, at); }
  void move(QPoint at) { QTest::mouseMove(window(), at); }
  void release(QPoint at, Qt::MouseButton button) { QTest::mouseRelease(window(), button, {}, at); }
  void click(QPoint at) {
    move(at);
    press(at, Qt::LeftButton);
    release(at, Qt::LeftButton);
  }

  double range(std::int64_t direction = 1) { return session().a1({1, direction}).number(); }
  double sill(std::int64_t direction = 1) { return session().c1({1, direction}).number(); }
  Session& session() { return program_.session(); }

  QTemporaryDir folder_;
  Program program_;
};

TEST_F(RealMouse, DragsARangeWithAllHandlesInView) {
  click(inPicture({20, 20}));
  ASSERT_TRUE(shown(1));
  press(onHandle(1), Qt::LeftButton);
  EXPECT_TRUE(session().dragsel[1]);
  EXPECT_TRUE(shown(0)) << "a press on a handle leaves the focus with the picture";
  EXPECT_TRUE(shown(1));
  for (const QPoint at : {QPoint(120, 100), QPoint(180, 100), QPoint(254, 100)}) {
    move(inPicture(at));
    EXPECT_TRUE(session().dragging);
    EXPECT_TRUE(shown(0));
    EXPECT_TRUE(shown(1));
    // Pixels of 15 twips: (x - 800) / 4868 * 30, three decimals in the field.
    const double expected = (at.x() * 15 - 800) / 4868.0 * 30;
    EXPECT_NEAR(range(), expected, 0.0006) << at.x();
  }
  release(inPicture({254, 100}), Qt::LeftButton);
  // The redraw behind the release puts the range on the nearest place of its slider.
  EXPECT_NEAR(range(), 18.544, 1e-9);
  EXPECT_EQ(sill(), 1);
  EXPECT_FALSE(session().dragsel[1]);
  EXPECT_FALSE(session().dragging);
  EXPECT_TRUE(shown(1));
}

TEST_F(RealMouse, DragsASillWithTheRightButton) {
  click(inPicture({20, 20}));
  press(onHandle(1), Qt::RightButton);
  move(inPicture({200, 150}));
  move(inPicture({254, 100}));
  release(inPicture({254, 100}), Qt::RightButton);
  // 100 pixels are 1500 twips: (1500 - 3120) / (600 - 3120) * 2.12 = 1.362857.
  EXPECT_NEAR(sill(), 1.363, 1e-9);
  EXPECT_EQ(range(), 15);
  EXPECT_FALSE(session().dragging);
}

TEST_F(RealMouse, FollowsAFastMoveOutOfTheWindowToTheEdge) {
  click(inPicture({20, 20}));
  press(onHandle(1), Qt::LeftButton);
  move(QPoint(-500, -500));
  EXPECT_EQ(range(), 1e-05) << "a range of 0, which the curve takes as the least one";
  move(QPoint(5000, 5000));
  EXPECT_EQ(range(), 30);
  release(QPoint(5000, 5000), Qt::LeftButton);
  EXPECT_FALSE(session().dragsel[1]);
  EXPECT_EQ(sill(), 1);
}

TEST_F(RealMouse, APressOnTheTitleLeavesTheHandlesInView) {
  click(inPicture({20, 20}));
  const QPoint title = placeOf(plot(), QPoint(plot().QWidget::width() / 2, 8));
  press(title, Qt::LeftButton);
  release(title, Qt::LeftButton);
  EXPECT_TRUE(shown(0));
  EXPECT_TRUE(shown(1));
}

TEST_F(RealMouse, ADoubleClickHoldsAHandleAndTheNextOneFreesIt) {
  click(inPicture({20, 20}));
  const QPoint at = onHandle(1);
  QTest::mouseDClick(window(), Qt::LeftButton, {}, at);
  EXPECT_TRUE(session().dragsel[1]) << "press, release and release";
  move(inPicture({254, 100}));
  EXPECT_NEAR(range(), 18.55, 1e-9) << "no button is down";
  QTest::mouseDClick(window(), Qt::LeftButton, {}, onHandle(1));
  EXPECT_FALSE(session().dragsel[1]);
  EXPECT_FALSE(session().dragging);
}

TEST_F(RealMouse, BothButtonsEndFreeInEitherOrder) {
  for (const bool leftFirst : {true, false}) {
    click(inPicture({20, 20}));
    const QPoint at = onHandle(1);
    press(at, Qt::LeftButton);
    press(at, Qt::RightButton);
    EXPECT_FALSE(session().dragsel[1]) << "a press on a held handle frees it";
    release(at, leftFirst ? Qt::LeftButton : Qt::RightButton);
    EXPECT_TRUE(session().dragsel[1]);
    release(at, leftFirst ? Qt::RightButton : Qt::LeftButton);
    EXPECT_FALSE(session().dragsel[1]);
    EXPECT_FALSE(session().dragging);
    EXPECT_EQ(range(), 15);
    EXPECT_EQ(sill(), 1);
  }
}

TEST_F(RealMouse, AReleaseBehindTheActivationOfAnotherWindowTakesNothingUp) {
  Formod& first = plot();
  session().curdir = 2;
  program_.window().plotvariogram();
  auto& area = program_.control<QMdiArea>("Area");
  area.setActiveSubWindow(&first);
  QWidget& picture = Program::find<QWidget>(first, "Picture4");
  QWidget& handle = Program::find<QWidget>(first, "estru_1");
  click(placeOf(picture, {20, 20}));
  ASSERT_TRUE(handle.isVisible());
  press(placeOf(handle, {2, 2}), Qt::LeftButton);
  area.activateNextSubWindow();
  ASSERT_NE(area.activeSubWindow(), &first);
  EXPECT_FALSE(session().dragsel[1]);
  const QPoint far = placeOf(picture, {200, 100});
  move(far);
  release(far, Qt::LeftButton);
  EXPECT_FALSE(session().dragsel[1]);
  move(far + QPoint(5, 5));
  EXPECT_EQ(range(1), 15);
  EXPECT_EQ(range(2), 15);
  // The next press is one like any other.
  area.setActiveSubWindow(&first);
  click(placeOf(picture, {20, 20}));
  press(placeOf(handle, {2, 2}), Qt::LeftButton);
  EXPECT_TRUE(session().dragsel[1]);
  release(placeOf(handle, {2, 2}), Qt::LeftButton);
  EXPECT_FALSE(session().dragsel[1]);
}

TEST_F(RealMouse, DragsInTheSmallestWindow) {
  const auto before = program_.dialogs().shown;
  plot().resize(10, 10);
  program_.window().plotvariogram();
  click(inPicture({20, 20}));
  press(onHandle(0), Qt::LeftButton);
  move(inPicture({100, 45}));
  release(inPicture({100, 45}), Qt::LeftButton);
  EXPECT_GE(session().c0({1, 1}).number(), 0);
  EXPECT_LE(session().c0({1, 1}).number(), 2.12);
  EXPECT_FALSE(session().dragging);
  EXPECT_EQ(program_.dialogs().shown, before) << "no box, least of all the one of a fault";
}

}  // namespace
}  // namespace zevfit::test
