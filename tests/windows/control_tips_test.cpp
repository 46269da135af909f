// Each control of the panel, and what lies over a plot, says what it does.
#include "windows/control_tips.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QTest>
#include <algorithm>

#include "tests/support/two_plots.h"

namespace zevfit::test {
namespace {

class ControlTips : public testing::Test, protected TwoPlots {
 protected:
  QWidget& panel() {
    return Program::find<QWidget>(*program().window().centralWidget(), "Picture1");
  }
  static std::string tipOf(const QWidget& control) { return control.toolTip().toStdString(); }
  Qt::CursorShape cursor(int i) { return handle(1, i).cursor().shape(); }
  /// Brings out the handles of the first plot.
  void bringOut() { QTest::mouseClick(&picture(1), Qt::LeftButton, {}, QPoint(20, 20)); }
};

TEST_F(ControlTips, StandOnEveryControlOfThePanel) {
  int controls = 0;
  for (const QWidget* control : panel().findChildren<QWidget*>()) {
    // Parts of a control have no name of the program's.
    if (control->objectName().isEmpty() || control->objectName().startsWith("qt_")) continue;
    ++controls;
    EXPECT_NE(tipOf(*control), "") << control->objectName().toStdString();
    EXPECT_NE(control->accessibleDescription(), "") << control->objectName().toStdString();
  }
  EXPECT_EQ(controls, 39) << "as many as the panel has";
}

TEST_F(ControlTips, AreAllOfControlsThatExist) {
  for (const ControlTip& tip : controlTips()) {
    QWidget* inPanel = panel().findChild<QWidget*>(tip.control);
    QWidget* inPlot = plot(1).findChild<QWidget*>(tip.control);
    EXPECT_TRUE(inPanel || inPlot) << tip.control;
    if (inPlot) {
      EXPECT_EQ(tipOf(*inPlot), tip.text);
    }
  }
}

TEST_F(ControlTips, StayThoseThatUsersKnow) {
  const std::pair<const char*, const char*> rows[] = {{"Combo2", "Select the Variable"},
                                                      {"Combodirvar", "Select the Direction"},
                                                      {"est2tipo", "Model for Structure 1"},
                                                      {"est3tipo", "Model for Structure 2"},
                                                      {"est4tipo", "Model for Structure 3"},
                                                      {"Command1", "Change X-Y scales"},
                                                      {"Command2", "Test - Cross Semivariogram"},
                                                      {"Command3", "Grid ON/OFF"},
                                                      {"Command4", "Legend h[units]"},
                                                      {"Command5", "Plot Theoretical Model"}};
  for (const auto& [name, tip] : rows)
    EXPECT_EQ(tipOf(Program::find<QWidget>(panel(), name)), tip) << name;
}

TEST_F(ControlTips, GiveWayToTheNumbersUnderThePointer) {
  auto& line = Program::find<QWidget>(panel(), "est1");
  EXPECT_EQ(tipOf(line), "Fit the nugget effect (blank key; arrows go from line to line)");
  QTest::mouseMove(&line, QPoint(5, 5));
  QMouseEvent over(QEvent::MouseMove, QPointF(6, 6), line.mapToGlobal(QPointF(6, 6)), Qt::NoButton,
                   Qt::NoButton, {});
  QApplication::sendEvent(&line, &over);
  EXPECT_EQ(tipOf(line), "1") << "the number of the variable";
  EXPECT_EQ(line.accessibleDescription(),
            "Fit the nugget effect (blank key; arrows go from line to line)");
}

TEST_F(ControlTips, ThePointerOverAHandleShowsWhatADragChanges) {
  bringOut();
  for (int i = 0; i < 2; ++i) {
    move(onHandle(1, i));
    EXPECT_EQ(cursor(i), i == 0 ? Qt::SizeVerCursor : Qt::SizeAllCursor) << i;
  }
  const std::pair<Qt::MouseButton, Qt::CursorShape> rows[] = {{Qt::LeftButton, Qt::SizeHorCursor},
                                                              {Qt::RightButton, Qt::SizeVerCursor}};
  for (const auto& [button, shape] : rows) {
    bringOut();
    const QPoint at = onHandle(1, 1);
    press(at, button);
    EXPECT_EQ(cursor(1), shape);
    release(at, button);
    EXPECT_EQ(cursor(1), Qt::SizeAllCursor);
  }
  bringOut();
  const QPoint nugget = onHandle(1, 0);
  press(nugget);
  EXPECT_EQ(cursor(0), Qt::SizeVerCursor);
  release(nugget);
}

}  // namespace
}  // namespace zevfit::test
