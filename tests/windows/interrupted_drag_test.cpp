// What comes between the press and the release of a drag: keys, other windows, the end of the
// program, a menu, another file. No handle stays that can't be freed, and no cell changes that
// isn't dragged.
#include <gtest/gtest.h>

#include <QTimer>

#include "tests/support/two_plots.h"

namespace zevfit::test {
namespace {

class InterruptedDrag : public testing::Test, protected TwoPlots {
 protected:
  /// Holds the range of the first plot's structure.
  void beginDrag(Qt::MouseButton button = Qt::LeftButton) {
    click(inPicture(1, {20, 20}));
    press(onHandle(1, 1), button);
    ASSERT_TRUE(session().dragsel[1]);
  }
  void endDrag(QPoint at) {
    move(at);
    release(at);
  }
  double range(std::int64_t direction) { return session().a1({1, direction}).number(); }
};

TEST_F(InterruptedDrag, KeysThatBringTheOtherPlotUpEndIt) {
  for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_F6}) {
    area().setActiveSubWindow(&plot(1));
    beginDrag();
    keyWithControl(key);
    ASSERT_EQ(area().activeSubWindow(), &plot(2)) << key;
    EXPECT_FALSE(session().dragging) << key;
    endDrag(inPicture(1, {254, 100}));
    EXPECT_FALSE(holdsAny()) << key;
    EXPECT_EQ(range(1), 15) << key;
    EXPECT_EQ(range(2), 15) << key;
  }
}

TEST_F(InterruptedDrag, BehindItTheNextOneIsLikeAnyOther) {
  beginDrag();
  keyWithControl(Qt::Key_F6);
  ASSERT_EQ(area().activeSubWindow(), &plot(2));
  endDrag(inPicture(1, {254, 100}));
  click(inPicture(1, {20, 20}));
  press(onHandle(1, 1));
  move(inPicture(1, {254, 100}));
  // 254 pixels are 3810 twips, of a box from 800 to 800 before the right end, on an axis to 30.
  EXPECT_NEAR(range(1), (3810 - 800) / (plot(1).pictureWidth() - 1600) * 30, 0.0006);
  EXPECT_EQ(range(2), 15);
  release(inPicture(1, {254, 100}));
  EXPECT_FALSE(holdsAny());
}

TEST_F(InterruptedDrag, TheKeyThatClosesThePlotEndsIt) {
  beginDrag();
  keyWithControl(Qt::Key_F4);
  EXPECT_FALSE(plot(1).isVisible());
  EXPECT_EQ(area().activeSubWindow(), &plot(2));
  endDrag(inPicture(2, {100, 100}));
  EXPECT_FALSE(holdsAny());
  EXPECT_FALSE(session().dragging);
  EXPECT_EQ(range(1), 15);
  EXPECT_EQ(range(2), 15);
}

TEST_F(InterruptedDrag, TheLastPlotClosedInItComesBackFree) {
  plot(2).close();
  area().setActiveSubWindow(&plot(1));
  beginDrag();
  keyWithControl(Qt::Key_F4);
  release(inPicture(1, {254, 100}));
  program().control<QAbstractButton>("Command5").click();
  EXPECT_TRUE(plot(1).isVisible());
  EXPECT_FALSE(holdsAny());
  EXPECT_FALSE(session().dragging);
  EXPECT_EQ(range(1), 15);
}

TEST_F(InterruptedDrag, GoesOnWhenTheEndOfTheProgramIsCancelled) {
  beginDrag();
  EXPECT_FALSE(program().window().close());
  EXPECT_TRUE(session().dragsel[1]);
  move(inPicture(1, {200, 100}));
  EXPECT_NE(range(1), 15);
  release(inPicture(1, {200, 100}));
  EXPECT_FALSE(holdsAny());
}

TEST_F(InterruptedDrag, TheProgramEndsInIt) {
  beginDrag();
  program().dialogs().answers = {Answer::no};
  EXPECT_TRUE(program().window().close());
  EXPECT_FALSE(anyFault());
}

// The icon of a plot's frame remembers a mouse that has left it at a leap, and would open its menu
// at the next press of the right button, wherever that is.
TEST_F(InterruptedDrag, NoMenuOfTheFrameComesUpInThePicture) {
  click(inPicture(1, {20, 20}));
  move(placeOf(plot(1), {14, 12}));
  const QPoint at = onHandle(1, 1);
  move(at);
  bool menu = false;
  QTimer::singleShot(0, [&menu] {
    QWidget* popup = QApplication::activePopupWidget();
    menu = popup != nullptr;
    if (menu) popup->close();
  });
  QTest::mousePress(window(), Qt::RightButton, {}, at);
  QApplication::processEvents();
  EXPECT_FALSE(menu);
  EXPECT_TRUE(session().dragsel[1]);
  release(at, Qt::RightButton);
  EXPECT_FALSE(holdsAny());
}

TEST_F(InterruptedDrag, AFileOpenedMeanwhileLeavesAHandleThatCanBeFreed) {
  const std::string next = write("next.zvm", "next\nzevra\n1\nlead\n1\n1\n0;0\n1\n10 0.5 9\n");
  for (const char* button : {"Command1", "Command2"}) {
    area().setActiveSubWindow(&plot(1));
    click(inPicture(1, {20, 20}));
    session().use1({1, 1}) = 1;
    beginDrag();
    program().dialogs().files = {next};
    Program::inModal(
        [&] { program().trigger("k1"); },
        [&](QWidget& modal) { Program::find<QAbstractButton>(modal, button).click(); });
    endDrag(inPicture(1, {200, 60}));
    move(inPicture(1, {210, 60}));
    if (session().dragsel[1]) doubleClick(onHandle(1, 1));
    EXPECT_FALSE(holdsAny()) << button;
    EXPECT_FALSE(anyFault()) << button;
  }
}

}  // namespace
}  // namespace zevfit::test
