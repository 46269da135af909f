// The wheel over what holds a value: it counts where the user has put the focus, and nowhere else.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include "tests/support/results_window.h"
#include "tests/support/small_files.h"
#include "tests/tour/hand.h"

namespace zevfit::test {
namespace {

/// The window system turns the wheel over the middle of a control.
void turn(QWidget& control, QPoint by, Qt::KeyboardModifiers with = {}) {
  QWidget& top = *control.window();
  const QPointF at = control.mapTo(&top, control.rect().center());
  QWheelEvent event(at, top.mapToGlobal(at), {}, by, {}, with, Qt::NoScrollPhase, false);
  QSpontaneKeyEvent::setSpontaneous(&event);
  qApp->notify(top.windowHandle(), &event);
}
constexpr QPoint kUp(0, 120), kDown(0, -120);

class Wheel : public testing::Test {
 protected:
  Wheel() : program_(folder_.path()) {
    program_.openBytes(kTwoDirections);
    // 64 steps of 32000 are 0.064 on this axis, which the three decimals of the field can hold.
    session().ymax({1, 1}) = 32;
    program_.window().plotvariogram();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&program_.window()));
    hand_.clickMark(program_.control("est1"));
    hand_.clickMark(program_.control("plot1"));
    hand_.click(field());
  }

  QSlider& slider() { return program_.control<QSlider>("HScrollc0"); }
  QLineEdit& field() { return program_.control<QLineEdit>("Textc0"); }
  QComboBox& directions() { return program_.control<QComboBox>("Combodirvar"); }
  Session& session() { return program_.session(); }
  void click(QWidget& control) {
    const QPoint at = control.mapTo(&program_.window(), control.rect().center());
    QTest::mouseClick(program_.window().windowHandle(), Qt::LeftButton, {}, at);
  }

  ScratchFolder folder_;
  Program program_;
  tour::Hand hand_;
};

TEST_F(Wheel, OverWhatHasNoFocusChangesNothing) {
  session().c0typed({1, 1}) = true;
  const int before = slider().value();
  for (const QPoint by : {kUp, kDown, QPoint(120, 0), QPoint(-120, 0)}) {
    turn(slider(), by);
    turn(directions(), by);
  }
  EXPECT_EQ(slider().value(), before);
  EXPECT_EQ(directions().currentIndex(), 0);
  EXPECT_TRUE(field().hasFocus()) << "the wheel moves no focus";
  EXPECT_TRUE(session().c0typed({1, 1})) << "and the field still drives";
}

TEST_F(Wheel, ANotchOverTheSliderIsOneSmallStep) {
  slider().setFocus(Qt::TabFocusReason);
  const int before = slider().value();
  const struct {
    const char* what;
    QPoint by;
    Qt::KeyboardModifiers with;
    int steps;
  } rows[] = {
      {"up", kUp, {}, 64},
      {"two notches at once", {0, 240}, {}, 192},
      {"down", kDown, {}, 128},
      {"to the right", {-120, 0}, {}, 192},
      {"to the left", {120, 0}, {}, 128},
      {"half a notch", {0, 60}, {}, 128},
      {"the other half", {0, 60}, {}, 192},
      {"half a notch again", {0, 60}, {}, 192},
      {"back: that half does not count", kDown, {}, 128},
      {"the large change", kUp, Qt::ControlModifier, 1728},
      {"and back", kDown, Qt::ShiftModifier, 128},
  };
  for (const auto& row : rows) {
    turn(slider(), row.by, row.with);
    EXPECT_EQ(slider().value(), before + row.steps) << row.what;
  }
  EXPECT_EQ(before, 0);
  EXPECT_EQ(session().c0({1, 1}).number(), 0.128);
}

TEST_F(Wheel, AClickGivesTheFocusThatCounts) {
  click(slider());
  const int before = slider().value();
  turn(slider(), kUp);
  EXPECT_EQ(slider().value(), before + 64);
  // The list drops down and is put back.
  click(directions());
  QApplication::processEvents();
  directions().hidePopup();
  QApplication::processEvents();
  turn(directions(), kDown);
  EXPECT_EQ(directions().currentIndex(), 1);
}

TEST_F(Wheel, BehindAnotherProgramChangesNothing) {
  slider().setFocus(Qt::TabFocusReason);
  const int before = slider().value();
  const QString text = field().text();
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  turn(slider(), kUp);
  EXPECT_EQ(slider().value(), before);
  other.hide();
  program_.window().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&program_.window()));
  turn(slider(), kUp);
  EXPECT_EQ(slider().value(), before + 64) << "the focus has come back with the window";
  EXPECT_NE(field().text(), text) << "the slider leads";
}

TEST_F(Wheel, OverAListScrollsThePanelBehindIt) {
  program_.window().resize(900, 400);
  QApplication::processEvents();
  auto* panel = program_.control<QWidget>("Picture1").parentWidget()->parentWidget();
  QScrollBar* bar = dynamic_cast<QScrollArea&>(*panel).verticalScrollBar();
  ASSERT_GT(bar->maximum(), 0);
  bar->setValue(0);
  turn(directions(), kDown);
  EXPECT_GT(bar->value(), 0);
  EXPECT_EQ(directions().currentIndex(), 0);
}

using WheelInResults = ResultsBench;

// The list has the focus when the window comes up; the user has not given it.
TEST_F(WheelInResults, TheListOfVariablesWaitsForTheUser) {
  results([](OpenResults& open) {
    auto& list = open.find<QComboBox>("Combovarver");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&open.window()));
    ASSERT_TRUE(list.hasFocus());
    turn(list, kDown);
    EXPECT_EQ(list.currentIndex(), 0);
    QTest::keyClick(&open.window(), Qt::Key_Tab);
    QTest::keyClick(&open.window(), Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_TRUE(list.hasFocus());
    turn(list, kDown);
    EXPECT_EQ(list.currentIndex(), 1);
  });
}

}  // namespace
}  // namespace zevfit::test
