// Each control of the panel, and what lies over a plot, says what it does.
#include "windows/control_tips.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QEnterEvent>
#include <QGroupBox>
#include <QLabel>
#include <QTest>
#include <QToolBar>
#include <algorithm>

#include "tests/support/two_plots.h"
#include "windows/foot.h"

namespace zevfit::test {
namespace {

class ControlTips : public testing::Test, protected TwoPlots {
 protected:
  QWidget& panel() {
    return Program::find<QWidget>(*program().window().centralWidget(), "Picture1");
  }
  static std::string tipOf(const QWidget& control) { return control.toolTip().toStdString(); }
  Qt::CursorShape cursor(int i) { return handle(1, i).cursor().shape(); }
  static void enter(QWidget& control) {
    QEnterEvent event(QPointF(5, 5), QPointF(5, 5), control.mapToGlobal(QPointF(5, 5)));
    QApplication::sendEvent(&control, &event);
  }
  static void leave(QWidget& control) {
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(&control, &event);
  }
  /// What stands where hints stand.
  std::string foot() {
    auto& tip = program().control<QLabel>("LabelTip");
    auto& hint = program().control<QLabel>("LabelHint");
    EXPECT_NE(tip.isVisible(), hint.isVisible());
    return (tip.isVisible() ? tip : hint).text().toStdString();
  }
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

/// The keys of the controls that have one; what only shows something has none.
const std::pair<const char*, const char*> kKeys[] = {
    {"Combo2", "arrows go from entry to entry"},
    {"Combodirvar", "arrows go from entry to entry"},
    {"est1", "blank key; arrows go from line to line"},
    {"est2", "blank key; arrows go from line to line"},
    {"est3", "blank key; arrows go from line to line"},
    {"est4", "blank key; arrows go from line to line"},
    {"plot1", "blank key"},
    {"plot2", "blank key"},
    {"plot3", "blank key"},
    {"plot4", "blank key"},
    {"tipo1", "blank key"},
    {"tipo2", "blank key"},
    {"tipo3", "blank key"},
    {"tipo4", "blank key"},
    {"Textc0", "Enter draws"},
    {"Texta", "Enter draws"},
    {"HScrollc0", "arrows; Page Up and Page Down"},
    {"HScrolla", "arrows; Page Up and Page Down"},
    {"Labelvariance", "Alt+V"},
    {"psill", "blank key"},
    {"Command1", "blank key"},
    {"Command2", "blank key"},
    {"Command3", "blank key"},
    {"Command4", "blank key"},
    {"Command5", "Alt+P"},
};

/// Labels name what stands beside them, frames what stands within.
bool onlyShows(const QWidget& control) {
  if (control.objectName() == "Labelvariance") return false;
  return qobject_cast<const QLabel*>(&control) || qobject_cast<const QGroupBox*>(&control);
}

TEST_F(ControlTips, TellTheKeyOfEveryControlUnderThePointer) {
  std::size_t told = 0;
  for (QWidget* control : panel().findChildren<QWidget*>()) {
    if (control->objectName().isEmpty() || control->objectName().startsWith("qt_")) continue;
    if (onlyShows(*control)) continue;
    const std::string name = control->objectName().toStdString();
    const auto* row =
        std::ranges::find(kKeys, name, [](const auto& one) { return std::string(one.first); });
    ASSERT_NE(row, std::end(kKeys)) << name << " has no row";
    ++told;
    enter(*control);
    EXPECT_NE(foot().find(row->second), std::string::npos) << name << ": " << foot();
    EXPECT_EQ(foot(), control->accessibleDescription().toStdString()) << name;
    leave(*control);
    EXPECT_EQ(foot(), "") << name;
  }
  EXPECT_EQ(told, std::size(kKeys));
}

TEST_F(ControlTips, StandAtTheFootOverTheHint) {
  auto& plotButton = Program::find<QWidget>(panel(), "Command5");
  const std::string tip = "Plot Theoretical Model (Alt+P)";
  hintAtFoot(program().window(), "before");
  enter(plotButton);
  EXPECT_EQ(foot(), tip);
  leave(plotButton);
  EXPECT_EQ(foot(), "before") << "it was only covered";
  enter(plotButton);
  hintAtFoot(program().window(), "news");
  EXPECT_EQ(foot(), "news");
  hintAtFoot(program().window(), "");
  enter(plotButton);
  hintAtFoot(program().window(), "");
  EXPECT_EQ(foot(), tip) << "there was no hint to take away";
  EXPECT_TRUE(program().control("LabelMisfit").isVisible());
  EXPECT_TRUE(program().control("LabelFile").isVisible());
}

TEST_F(ControlTips, OfTheToolbarTellTheirKeysAtTheFoot) {
  QWidget* open = program()
                      .control<QToolBar>("Toolbar1")
                      .widgetForAction(program().window().findChild<QAction*>("k1"));
  enter(*open);
  EXPECT_EQ(foot(), "Open Data File (*.ZVM) (Ctrl+O)");
  EXPECT_EQ(open->toolTip(), "Open Data File (*.ZVM)");
  leave(*open);
  EXPECT_EQ(foot(), "");
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
