// The window of all directions: its legend, and that it follows what is done to the plots.
#include "windows/all_directions.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QListWidget>
#include <QSlider>
#include <QTest>

#include "platform/painter_surface.h"
#include "platform/picture_box.h"
#include "tests/support/two_plots.h"
#include "tests/tour/hand.h"

namespace zevfit::test {
namespace {

constexpr QColor kSecond(213, 94, 0);

class AllDirectionsWindow : public testing::Test {
 protected:
  AllDirectionsWindow() {
    QTest::keyClick(&program().window(), Qt::Key_L, Qt::ControlModifier);
    QApplication::processEvents();
  }

  Program& program() { return plots_.program(); }
  QWidget& window() { return program().control<QWidget>("alldirections"); }
  QListWidget& legend() { return Program::find<QListWidget>(window(), "legend"); }
  /// The picture, once what is under way has come.
  QImage picture() {
    QApplication::processEvents();
    return Program::find<PictureBox>(window(), "overlay").image();
  }
  /// The second direction is drawn.
  bool hasSecond() {
    const QImage image = picture();
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (image.pixelColor(x, y) == kSecond) return true;
    return false;
  }

  void press(const char* button) { hand_.click(program().control(button)); }
  void choose(const char* list, int index) {
    hand_.choose(program().control<QComboBox>(list), index);
  }
  /// By its box.
  void switchEntry(int row) {
    const QRect place = legend().visualItemRect(legend().item(row));
    hand_.clickAt(*legend().viewport(), {place.left() + 10, place.center().y()});
  }

  TwoPlots plots_;
  tour::Hand hand_;
};

TEST_F(AllDirectionsWindow, ShowsEachDirectionWithAnEntry) {
  EXPECT_TRUE(window().isVisible());
  EXPECT_EQ(window().windowTitle(), "All directions of zinc");
  ASSERT_EQ(legend().count(), 2);
  EXPECT_EQ(legend().item(0)->text(), "0;0");
  EXPECT_EQ(legend().item(1)->text(), "90;0");
  EXPECT_FALSE(legend().item(1)->icon().isNull());
  EXPECT_TRUE(hasSecond());
}

TEST_F(AllDirectionsWindow, EntriesAreSwitchedByMouseAndKeys) {
  EXPECT_TRUE(legend().hasFocus());
  hand_.key(window(), Qt::Key_Down);
  hand_.key(window(), Qt::Key_Space);
  EXPECT_EQ(legend().item(1)->checkState(), Qt::Unchecked);
  EXPECT_FALSE(hasSecond());
  switchEntry(1);
  EXPECT_EQ(legend().item(1)->checkState(), Qt::Checked);
  EXPECT_TRUE(hasSecond());
  hand_.key(window(), Qt::Key_N, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return !hasSecond(); }));
  hand_.key(window(), Qt::Key_A, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return hasSecond(); }));
}

TEST_F(AllDirectionsWindow, FollowsASliderOnceTheEventsAreDone) {
  hand_.clickMark(program().control("est1"));
  auto& slider = program().control<QSlider>("HScrollc0");
  hand_.click(slider);
  const QImage before = picture();
  QTest::keyClick(&slider, Qt::Key_PageUp);
  EXPECT_EQ(Program::find<PictureBox>(window(), "overlay").image(), before) << "not at once";
  EXPECT_NE(picture(), before);
}

// The press brings the window of the plot to the front; the drag leaves that of all directions be.
TEST_F(AllDirectionsWindow, FollowsTheDragOfAHandle) {
  hand_.clickAt(plots_.picture(1), {20, 20});
  const double range = line(program().session(), {1, 1}, Line::first).range().number();
  QImage before = picture();
  hand_.press(plots_.handle(1, 1), {2, 2}, Qt::LeftButton);
  hand_.drag(plots_.handle(1, 1), {-60, 2});
  EXPECT_LT(line(program().session(), {1, 1}, Line::first).range().number(), range);
  EXPECT_NE(picture(), before) << "while it is held";
  before = picture();
  hand_.drag(plots_.handle(1, 1), {-30, 2});
  EXPECT_NE(picture(), before) << "at each step";
  hand_.release(Qt::LeftButton);
}

TEST_F(AllDirectionsWindow, FollowsTheGrid) {
  const QImage with = picture();
  press("Command3");
  EXPECT_NE(picture(), with);
  press("Command3");
  EXPECT_EQ(picture(), with);
}

TEST_F(AllDirectionsWindow, FollowsTheColours) {
  constexpr Colour kPaper = 0xCCFFCC;
  EXPECT_EQ(toColour(picture().pixelColor(1, 1)), kWhite);
  press("Command5");
  hand_.key(program().window(), Qt::Key_F, Qt::ControlModifier);
  auto& format = program().control("Formfont");
  hand_.click(Program::find<QWidget>(format, "Command5"));
  auto& colours = program().control("cores");
  hand_.clickMark(Program::find<QWidget>(colours, "Option5"));
  program().dialogs().colours = {kPaper};
  hand_.click(Program::find<QWidget>(colours, "Command1"));
  hand_.click(Program::find<QWidget>(colours, "Command2"));
  hand_.click(Program::find<QWidget>(format, "Command2"));
  EXPECT_EQ(toColour(picture().pixelColor(1, 1)), kPaper);
}

TEST_F(AllDirectionsWindow, FollowsTheScalesOfTheAxes) {
  const QImage before = picture();
  press("Command1");
  auto& scales = program().control("cutgraph");
  hand_.typeAndEnter(Program::find<QWidget>(scales, "novoxmax"), "60");
  EXPECT_EQ(program().session().xmax({1, 1}), 60);
  EXPECT_NE(picture(), before);
}

TEST_F(AllDirectionsWindow, FollowsAnotherVariableAndAnotherFile) {
  program().openBytes(kTwoVariables);
  const QImage zinc = picture();
  choose("Combo2", 1);
  EXPECT_NE(picture(), zinc);
  EXPECT_EQ(window().windowTitle(), "All directions of lead");
  program().openBytes(kOneDirection);
  picture();
  EXPECT_EQ(window().windowTitle(), "All directions of zinc");
  EXPECT_EQ(legend().count(), 1);
}

TEST_F(AllDirectionsWindow, KeepsWhatIsOffWhileTheFileIsTheSame) {
  switchEntry(1);
  choose("Combodirvar", 1);
  press("Command5");
  EXPECT_FALSE(hasSecond());
  EXPECT_EQ(legend().item(1)->checkState(), Qt::Unchecked);
}

TEST_F(AllDirectionsWindow, ChangesNothingInTheSession) {
  const Session& session = program().session();
  const Pair current = session.current(), plotted = session.plotted();
  const double xmax = session.xmax({1, 2}), sample = session.curvegam(50);
  switchEntry(0);
  picture();
  EXPECT_EQ(session.current(), current);
  EXPECT_EQ(session.plotted(), plotted);
  EXPECT_EQ(session.xmax({1, 2}), xmax);
  EXPECT_EQ(session.curvegam(50), sample);
}

TEST_F(AllDirectionsWindow, DoesNothingWhileItIsHidden) {
  hand_.key(window(), Qt::Key_Escape);
  EXPECT_FALSE(window().isVisible());
  const QImage before = picture();
  hand_.clickMark(program().control("est1"));
  hand_.typeAndEnter(program().control("Textc0"), "1");
  EXPECT_EQ(picture(), before);
  hand_.key(program().window(), Qt::Key_L, Qt::ControlModifier);
  EXPECT_NE(picture(), before);
}

TEST_F(AllDirectionsWindow, ItsPictureFollowsItsSize) {
  window().resize(1200, 700);
  QApplication::processEvents();
  auto& box = Program::find<PictureBox>(window(), "overlay");
  EXPECT_EQ(box.size(), box.parentWidget()->size());
  EXPECT_TRUE(hasSecond());
}

}  // namespace
}  // namespace zevfit::test
