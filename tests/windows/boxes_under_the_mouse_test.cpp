// Boxes that come up while a button of the mouse is down: the box takes the release, and the
// control below must not stay pressed.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <cmath>

#include "tests/support/model_lines.h"
#include "tests/support/program.h"
#include "tests/support/small_files.h"
#include "windows/formod.h"

namespace zevfit::test {
namespace {

using Boxes = std::vector<std::string>;

class BoxesUnderTheMouse : public testing::Test {
 protected:
  BoxesUnderTheMouse() : program_(folder_.path().toStdString()) {
    program_.openBytes(kOneDirection);
    program_.dialogs().shown.clear();
  }

  /// A power structure of this exponent, selected.
  void usePower(double exponent) {
    setStructure(program_.session(), {1, 1}, Line::first, "P", 1, exponent);
  }

  /// Each box is a real one, which another's release of the mouse goes to.
  void showRealBoxes() {
    program_.dialogs().meanwhile = [this] {
      QDialog box(&program_.window());
      QTimer::singleShot(0, &box, [&] {
        QTest::mouseRelease(box.windowHandle(), Qt::LeftButton, {}, QPoint(1, 1));
        box.accept();
      });
      box.exec();
    };
  }

  QWindow* window() { return program_.window().windowHandle(); }
  QPoint placeOf(QWidget& control, QPoint at) { return control.mapTo(&program_.window(), at); }
  QPoint middleOf(QWidget& control) { return placeOf(control, control.rect().center()); }
  void choose(const char* option) {
    QWidget& mark = program_.control(option);
    QTest::mouseClick(window(), Qt::LeftButton, {}, placeOf(mark, {8, mark.height() / 2}));
  }
  Boxes& shown() { return program_.dialogs().shown; }

  QTemporaryDir folder_;
  Program program_;
};

TEST_F(BoxesUnderTheMouse, PlotIsNotLeftPressed) {
  auto& plot = program_.control<QPushButton>("Command5");
  program_.control("Textc0").setFocus(Qt::MouseFocusReason);
  usePower(2.5);
  showRealBoxes();
  QTest::mousePress(window(), Qt::LeftButton, {}, middleOf(plot));
  QTest::mouseRelease(window(), Qt::LeftButton, {}, middleOf(plot));
  EXPECT_FALSE(shown().empty()) << "the power is told of";
  EXPECT_FALSE(plot.isDown());
  // The next press is one like any other, in a window that is the active one again.
  program_.window().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&program_.window()));
  usePower(1.5);
  shown().clear();
  QTest::mousePress(window(), Qt::LeftButton, {}, middleOf(plot));
  EXPECT_TRUE(plot.isDown());
  const auto drawn = [&] { return program_.control<Formod>("Formod").pen().clears; };
  const auto before = drawn();
  QTest::mouseRelease(window(), Qt::LeftButton, {}, middleOf(plot));
  EXPECT_FALSE(plot.isDown());
  EXPECT_EQ(shown(), Boxes{});
  EXPECT_EQ(drawn(), before + 1) << "the focus is there already";
  // From elsewhere a click draws at the focus and at the release.
  QTest::mouseClick(window(), Qt::LeftButton, {}, middleOf(program_.control("Textc0")));
  QTest::mousePress(window(), Qt::LeftButton, {}, middleOf(plot));
  EXPECT_TRUE(plot.hasFocus());
  EXPECT_TRUE(plot.isDown());
  EXPECT_EQ(drawn(), before + 2);
  QTest::mouseRelease(window(), Qt::LeftButton, {}, middleOf(plot));
  EXPECT_EQ(drawn(), before + 3);
}

TEST_F(BoxesUnderTheMouse, PlotCountsAPressBehindABoxOfAnotherTime) {
  auto& plot = program_.control<QPushButton>("Command5");
  showRealBoxes();
  program_.dialogs().plain("earlier");
  program_.control("Textc0").setFocus(Qt::MouseFocusReason);
  QTest::mousePress(window(), Qt::LeftButton, {}, middleOf(plot));
  EXPECT_TRUE(plot.isDown());
  QTest::mouseRelease(window(), Qt::LeftButton, {}, middleOf(plot));
}

TEST_F(BoxesUnderTheMouse, PlotCountsAPressBehindABoxThatTheTabKeyBroughtUp) {
  auto& plot = program_.control<QPushButton>("Command5");
  program_.control("Textc0").setFocus(Qt::MouseFocusReason);
  usePower(2.5);
  showRealBoxes();
  plot.setFocus(Qt::TabFocusReason);
  EXPECT_FALSE(shown().empty()) << "the power is told of";
  QTest::mousePress(window(), Qt::LeftButton, {}, middleOf(plot));
  EXPECT_TRUE(plot.isDown());
  QTest::mouseRelease(window(), Qt::LeftButton, {}, middleOf(plot));
  EXPECT_FALSE(plot.isDown());
}

TEST_F(BoxesUnderTheMouse, ASliderIsNotLeftPressed) {
  auto& slider = program_.control<QSlider>("HScrolla");
  usePower(1.5);
  choose("est2");
  showRealBoxes();
  // The groove to the right of the handle: a page step.
  const QPoint far = placeOf(slider, QPoint(slider.width() - 4, slider.height() / 2));
  QTest::mousePress(window(), Qt::LeftButton, {}, far);
  EXPECT_FALSE(shown().empty()) << "a page is more than a power may be";
  EXPECT_FALSE(slider.isSliderDown());
  const int stood = slider.value();
  QTest::mouseMove(window(), far - QPoint(40, 0));
  EXPECT_EQ(slider.value(), stood);
  QTest::mouseRelease(window(), Qt::LeftButton, {}, far);
}

TEST_F(BoxesUnderTheMouse, APressOnASliderGivesItTheFocus) {
  auto& slider = program_.control<QSlider>("HScrollc0");
  choose("est1");
  program_.control("Textc0").setFocus(Qt::MouseFocusReason);
  program_.session().c0typed({1, 1}) = true;
  QTest::mousePress(window(), Qt::LeftButton, {}, middleOf(slider));
  EXPECT_TRUE(slider.hasFocus());
  EXPECT_FALSE(program_.session().c0typed({1, 1})) << "the slider takes the lead";
  QTest::mouseRelease(window(), Qt::LeftButton, {}, middleOf(slider));
}

}  // namespace
}  // namespace zevfit::test
