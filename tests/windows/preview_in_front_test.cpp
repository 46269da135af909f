// The print preview beside the panel: a whole sheet is composed without going back to the main
// window's commands.
#include <gtest/gtest.h>

#include <QLabel>
#include <QMdiArea>
#include <QScreen>

#include "tests/support/full_report.h"
#include "tests/support/two_plots.h"
#include "tests/tour/hand.h"

namespace zevfit::test {
namespace {

class PreviewInFront : public testing::Test, protected TwoPlots {
 protected:
  PreviewInFront() : reports_(openReports(program())) {}
  void key(Qt::Key key, Qt::KeyboardModifiers held = {}) {
    QTest::keyClick(reports_.focusWidget() ? reports_.focusWidget() : &reports_, key, held);
  }
  std::string legend() { return Program::find<QLabel>(reports_, "Labeldir").text().toStdString(); }

  QWidget& reports_;
  tour::Hand hand_;
};

TEST_F(PreviewInFront, IsKeptBeforeTheMainWindowByTheDesktop) {
  EXPECT_EQ(reports_.windowType(), Qt::Dialog);
  EXPECT_EQ(reports_.windowHandle()->transientParent(), window());
  EXPECT_TRUE(reports_.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
  EXPECT_FALSE(reports_.isModal());
}

TEST_F(PreviewInFront, OpensBesideThePanelAndStaysWhereItWasMoved) {
  const QPoint corner = area().mapToGlobal(QPoint());
  EXPECT_EQ(reports_.x(), corner.x());
  EXPECT_GE(reports_.y(), corner.y());
  EXPECT_LT(reports_.y(), corner.y() + 50) << "a title bar farther down";
  reports_.move(40, 50);
  reports_.close();
  openReports(program());
  EXPECT_EQ(reports_.pos(), QPoint(40, 50));
}

TEST_F(PreviewInFront, LetsTheKeysGoFromPlotToPlotAndFillTheCells) {
  auto& page = Program::find<QWidget>(reports_, "Picture1_0");
  page.setFocus();
  ASSERT_EQ(session().current(), (Pair{1, 1}));
  key(Qt::Key_Space);
  EXPECT_EQ(legend(), session().dirname(1));
  key(Qt::Key_F6, Qt::ControlModifier);
  QApplication::processEvents();
  EXPECT_EQ(session().current(), (Pair{1, 2}));
  page.setFocus();
  key(Qt::Key_Down);
  key(Qt::Key_Space);
  EXPECT_EQ(legend(), session().dirname(2));
  key(Qt::Key_F6, Qt::ControlModifier | Qt::ShiftModifier);
  QApplication::processEvents();
  EXPECT_EQ(session().current(), (Pair{1, 1}));
}

TEST_F(PreviewInFront, SaysAtTheFootWhereASheetWent) {
  hand_.click(Program::find<QWidget>(reports_, "printar"));
  EXPECT_EQ(program().control<QLabel>("LabelHint").text(),
            "Report 1 went to the printer in memory.");
}

}  // namespace
}  // namespace zevfit::test
