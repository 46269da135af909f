// Where plots come up.
#include <gtest/gtest.h>

#include <QMdiArea>

#include "tests/support/full_report.h"
#include "tests/support/program.h"
#include "windows/formod.h"

namespace zevfit::test {
namespace {

/// Five directions.
const char* const kFive =
    "small\nzevra\n1\nzinc\n5\n1\n0;0\n30;0\n60;0\n90;0\n120;0\n"
    "1\n10 0.5 9\n10 0.5 9\n10 0.5 9\n10 0.5 9\n10 0.5 9\n";

class NewPlots : public testing::Test {
 protected:
  NewPlots() : program_(folder_.path()) { program_.openBytes(kFive); }

  QMdiArea& area() { return program_.control<QMdiArea>("Area"); }
  QMdiSubWindow& plot(std::int64_t direction) {
    plotPair(program_, {1, direction});
    QApplication::processEvents();
    return *area().activeSubWindow();
  }
  bool isInView(const QWidget& plot) { return area().viewport()->rect().contains(plot.geometry()); }
  /// The title of a plot, which its content lies below.
  static QRect titleOf(const QMdiSubWindow& plot) {
    return {plot.pos(), QSize(plot.QWidget::width(), plot.widget()->y())};
  }

  ScratchFolder folder_;
  Program program_;
};

TEST_F(NewPlots, TwoStandSideBySideInTheStartSize) {
  QMdiSubWindow& first = plot(1);
  QMdiSubWindow& second = plot(2);
  EXPECT_TRUE(isInView(first));
  EXPECT_TRUE(isInView(second));
  EXPECT_EQ(first.geometry().top(), second.geometry().top());
  EXPECT_EQ(first.geometry().right() + 1, second.geometry().left());
  for (QMdiSubWindow* each : {&first, &second})
    EXPECT_EQ(dynamic_cast<Formod*>(each)->width(), 6576) << "the standard size";
}

TEST_F(NewPlots, NoneHidesATitleWhileThereIsRoom) {
  std::vector<QMdiSubWindow*> plots;
  for (int direction = 1; direction <= 5; ++direction) {
    QMdiSubWindow& next = plot(direction);
    EXPECT_TRUE(isInView(next)) << direction;
    for (QMdiSubWindow* other : plots)
      EXPECT_FALSE(titleOf(*other).intersects(next.geometry())) << direction;
    plots.push_back(&next);
  }
}

TEST_F(NewPlots, OneThatWasClosedTakesAGap) {
  for (int direction = 1; direction <= 3; ++direction) plot(direction);
  QMdiSubWindow& second = plot(2);
  const QRect gap = second.geometry();
  second.close();
  EXPECT_EQ(plot(4).geometry(), gap);
  plot(4).close();
  QMdiSubWindow& third = plot(3);
  third.move(gap.topLeft());
  EXPECT_FALSE(plot(2).geometry().intersects(third.geometry()));
}

// One that is on show stays where the user has put it, whatever is drawn.
TEST_F(NewPlots, ADrawingMovesNoPlot) {
  QMdiSubWindow& first = plot(1);
  first.move(77, 55);
  plot(2);
  EXPECT_EQ(plot(1).pos(), QPoint(77, 55));
}

}  // namespace
}  // namespace zevfit::test
