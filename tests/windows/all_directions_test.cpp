// The window of all directions: its legend, and that it follows what is done to the plots.
#include "windows/all_directions.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QListWidget>
#include <QSlider>
#include <QTest>

#include "platform/picture_box.h"
#include "tests/support/two_plots.h"

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

  TwoPlots plots_;
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
  legend().setFocus();
  legend().setCurrentRow(1);
  QTest::keyClick(&legend(), Qt::Key_Space);
  EXPECT_EQ(legend().item(1)->checkState(), Qt::Unchecked);
  EXPECT_FALSE(hasSecond());
  const QRect row = legend().visualItemRect(legend().item(1));
  QTest::mouseClick(legend().viewport(), Qt::LeftButton, {}, {row.left() + 10, row.center().y()});
  EXPECT_EQ(legend().item(1)->checkState(), Qt::Checked);
  EXPECT_TRUE(hasSecond());
  QTest::keyClick(&window(), Qt::Key_N, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return !hasSecond(); }));
  QTest::keyClick(&window(), Qt::Key_A, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return hasSecond(); }));
}

TEST_F(AllDirectionsWindow, FollowsASliderOnceTheEventsAreDone) {
  const QImage before = picture();
  auto& slider = program().control<QSlider>("HScrollc0");
  program().control<QAbstractButton>("est1").click();
  slider.setValue(slider.value() + slider.maximum() / 4);
  EXPECT_EQ(Program::find<PictureBox>(window(), "overlay").image(), before) << "not at once";
  EXPECT_NE(picture(), before);
}

TEST_F(AllDirectionsWindow, FollowsAnotherVariableAndAnotherFile) {
  program().openBytes(kTwoVariables);
  const QImage zinc = picture();
  program().control<QComboBox>("Combo2").setCurrentIndex(1);
  EXPECT_NE(picture(), zinc);
  EXPECT_EQ(window().windowTitle(), "All directions of lead");
  program().openBytes(kOneDirection);
  picture();
  EXPECT_EQ(window().windowTitle(), "All directions of zinc");
  EXPECT_EQ(legend().count(), 1);
}

TEST_F(AllDirectionsWindow, KeepsWhatIsOffWhileTheFileIsTheSame) {
  legend().item(1)->setCheckState(Qt::Unchecked);
  program().control<QComboBox>("Combodirvar").setCurrentIndex(1);
  program().window().plotvariogram();
  EXPECT_FALSE(hasSecond());
  EXPECT_EQ(legend().item(1)->checkState(), Qt::Unchecked);
}

TEST_F(AllDirectionsWindow, ChangesNothingInTheSession) {
  const Session& session = program().session();
  const Pair current = session.current(), plotted = session.plotted();
  const double xmax = session.xmax({1, 2}), sample = session.curvegam(50);
  legend().item(0)->setCheckState(Qt::Unchecked);
  picture();
  EXPECT_EQ(session.current(), current);
  EXPECT_EQ(session.plotted(), plotted);
  EXPECT_EQ(session.xmax({1, 2}), xmax);
  EXPECT_EQ(session.curvegam(50), sample);
}

TEST_F(AllDirectionsWindow, DoesNothingWhileItIsHidden) {
  QTest::keyClick(&window(), Qt::Key_Escape);
  EXPECT_FALSE(window().isVisible());
  const QImage before = picture();
  line(program().session(), {1, 1}, Line::nugget).sill() = 1;
  program().window().plotvariogram();
  EXPECT_EQ(picture(), before);
  program().trigger("mnudirections");
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
