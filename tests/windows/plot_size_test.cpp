// A plot and its window follow each other, whatever makes the window larger or smaller.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>

#include "platform/picture_box.h"
#include "tests/support/two_plots.h"

namespace zevfit::test {
namespace {

class PlotSize : public testing::Test, protected TwoPlots {
 protected:
  PlotSize() { area().setActiveSubWindow(&plot(1)); }

  QSize room() { return area().maximumViewportSize(); }
  QSize content(int direction) { return plot(direction).widget()->size(); }

  /// The picture covers the content from corner to corner, and is drawn in that size: 800 twips
  /// from the left and 600 from the bottom its axes meet, in black.
  bool isWhole(int direction) {
    auto& box = dynamic_cast<PictureBox&>(picture(direction));
    if (box.geometry() != QRect(QPoint(), content(direction))) return false;
    const double bottom = plot(direction).pictureHeight() - 600;
    const double right = plot(direction).pictureWidth() - 800;
    for (const double x : {815.0, (800 + right) / 2 + 100, right - 15})
      if (box.colourAt(x, bottom).lightness() > 128) return false;
    return box.colourAt(800, bottom + 150).lightness() > 128;
  }
};

TEST_F(PlotSize, AMaximisedPlotFillsItsWindow) {
  plot(1).showMaximized();
  EXPECT_TRUE(plot(1).isMaximized());
  EXPECT_EQ(static_cast<QWidget&>(plot(1)).width(), room().width());
  EXPECT_GT(content(1).height(), room().height() * 9 / 10);
  EXPECT_TRUE(isWhole(1));
  // The nominal size is that of the content and 108 by 132 twips.
  EXPECT_EQ(plot(1).width(), content(1).width() * 15 + 108);
  EXPECT_EQ(plot(1).height(), content(1).height() * 15 + 132);
}

TEST_F(PlotSize, ARestoredPlotIsWholeInItsFormerPlace) {
  const QRect before = static_cast<QWidget&>(plot(1)).geometry();
  for (int i = 0; i < 2; ++i) {
    plot(1).showMaximized();
    plot(1).showNormal();
    EXPECT_EQ(static_cast<QWidget&>(plot(1)).geometry(), before) << i;
    EXPECT_TRUE(isWhole(1)) << i;
  }
}

TEST_F(PlotSize, AMaximisedPlotFollowsTheMainWindow) {
  plot(1).showMaximized();
  for (const QSize size : {QSize(900, 600), QSize(1300, 900)}) {
    program().window().resize(size);
    QApplication::processEvents();
    EXPECT_EQ(static_cast<QWidget&>(plot(1)).width(), room().width());
    EXPECT_TRUE(isWhole(1)) << size.width();
  }
}

TEST_F(PlotSize, APlotMinimisedWhileItWasLargeComesBackWhole) {
  plot(1).showMaximized();
  plot(1).showMinimized();
  session().curdir = 1;
  program().window().plotvariogram();
  EXPECT_FALSE(plot(1).isMinimized());
  EXPECT_TRUE(isWhole(1));
  plot(1).showMinimized();
  plot(1).showNormal();
  EXPECT_TRUE(isWhole(1));
  plot(1).showMinimized();
  plot(1).showMaximized();
  EXPECT_TRUE(isWhole(1));
}

TEST_F(PlotSize, OneMaximisedPlotAfterTheOtherIsWhole) {
  for (const int direction : {1, 2}) plot(direction).showMaximized();
  program().window().resize(1000, 700);
  QApplication::processEvents();
  for (const int direction : {1, 2, 1}) {
    area().setActiveSubWindow(&plot(direction));
    EXPECT_TRUE(isWhole(direction)) << direction;
    EXPECT_EQ(session().current(), (Pair{1, direction}));
  }
}

TEST_F(PlotSize, TheFrameTakesThePictureWithIt) {
  for (const QSize by : {QSize(60, 40), QSize(-150, -90)}) {
    plot(1).resize(static_cast<QWidget&>(plot(1)).size() + by);
    EXPECT_TRUE(isWhole(1)) << by.width();
  }
  EXPECT_EQ(session().current(), (Pair{1, 1}));
}

// A resize once ran all that an activation does: the lists went back to the plot's own pair.
TEST_F(PlotSize, AResizeRedrawsThePictureAndNothingElse) {
  auto& directions = program().control<QComboBox>("Combodirvar");
  for (const int chosen : {1, 2}) {
    directions.setCurrentIndex(chosen - 1);
    setNugget(session(), {1, chosen}, 0.25);
    session().ctotal({1, chosen}) = 7;
    session().dragsel = {true, false, true, false};
    session().dragging = true;
    const QString sill = program().control<QLineEdit>("Textc0").text();
    const Pair plotted = session().plotted();
    const auto curve = session().curvegam;
    plot(1).resize(static_cast<QWidget&>(plot(1)).size() - QSize(40, 30));
    EXPECT_TRUE(isWhole(1)) << chosen;
    plot(1).showMaximized();
    EXPECT_TRUE(isWhole(1)) << chosen;
    plot(1).showNormal();
    EXPECT_TRUE(isWhole(1)) << chosen;
    EXPECT_EQ(directions.currentIndex(), chosen - 1);
    EXPECT_EQ(session().current(), (Pair{1, chosen}));
    EXPECT_EQ(session().plotted(), plotted);
    EXPECT_EQ(program().control<QLineEdit>("Textc0").text(), sill) << chosen;
    EXPECT_EQ(session().ctotal({1, chosen}), 7);
    EXPECT_TRUE(session().dragging && session().dragsel[0] && session().dragsel[2]);
    for (int i = 1; i <= kCurvePoints; ++i) EXPECT_EQ(session().curvegam(i), curve(i)) << i;
    session().dragging = false;
    session().dragsel = {};
  }
}

// The active plot is that of direction 1, the plotted pair that of direction 2.
TEST_F(PlotSize, APlotBehindAnotherDrawingKeepsItsOwnCurve) {
  setStructure(session(), {1, 2}, Line::first, "E", 0.5, 4);
  session().setCurrent({1, 2});
  program().window().plotvariogram();
  area().setActiveSubWindow(&plot(1));
  plot(1).resize(500, 400);
  const QImage before = plot(1).clipboardImage();
  session().setPlotted({1, 2});
  plot(1).resize(501, 400);
  plot(1).resize(500, 400);
  EXPECT_EQ(plot(1).clipboardImage(), before);
}

TEST_F(PlotSize, AnotherPlotThanTheActiveOneFollowsWhenItsTurnComes) {
  plot(2).resize(500, 400);
  EXPECT_EQ(session().current(), (Pair{1, 1}));
  area().setActiveSubWindow(&plot(2));
  EXPECT_TRUE(isWhole(2));
}

TEST_F(PlotSize, ZoomFollowsInEveryState) {
  plot(1).showMaximized();
  program().trigger("kmenos");
  EXPECT_TRUE(isWhole(1));
  program().trigger("kmais");
  EXPECT_TRUE(isWhole(1));
}

TEST_F(PlotSize, ArrangingLeavesEveryPlotWholeAndTheActiveOneActive) {
  for (const char* command : {"k5", "k6", "k7", "k6", "k5", "k7"})
    for (const int active : {1, 2}) {
      plot(3 - active).resize(700, 500);
      area().setActiveSubWindow(&plot(active));
      plot(active).resize(300, 200);
      QList<QMdiSubWindow*> turns;
      const auto seen = QObject::connect(&area(), &QMdiArea::subWindowActivated,
                                         [&](QMdiSubWindow* window) { turns.append(window); });
      program().trigger(command);
      QObject::disconnect(seen);
      EXPECT_TRUE(turns.contains(&plot(3 - active))) << command;
      EXPECT_EQ(area().activeSubWindow(), &plot(active)) << command;
      EXPECT_EQ(session().current(), (Pair{1, active})) << command;
      for (const int direction : {1, 2}) EXPECT_TRUE(isWhole(direction)) << command << direction;
    }
}

TEST_F(PlotSize, ArrangingAMaximisedPlotLeavesItWhole) {
  for (const char* command : {"k5", "k6", "k7"}) {
    plot(2).showMaximized();
    plot(1).showMaximized();
    program().trigger(command);
    for (const int direction : {1, 2}) {
      EXPECT_FALSE(plot(direction).isMaximized()) << command;
      EXPECT_TRUE(isWhole(direction)) << command << direction;
    }
  }
}

// The second plot reaches far out of the area, which is scrolled to it.
TEST_F(PlotSize, TilesTheAreaThatIsThereWithoutScrollBars) {
  for (const char* command : {"k6", "k7"}) {
    plot(2).move(room().width() + 300, room().height() + 200);
    QApplication::processEvents();
    ASSERT_LT(area().viewport()->width(), room().width());
    for (QScrollBar* bar : {area().horizontalScrollBar(), area().verticalScrollBar()})
      bar->setValue(bar->maximum());
    program().trigger(command);
    QApplication::processEvents();
    EXPECT_EQ(area().viewport()->size(), room()) << command << ": no scroll bar";
    QRect covered;
    for (const int direction : {1, 2}) {
      covered |= static_cast<QWidget&>(plot(direction)).geometry();
      EXPECT_TRUE(isWhole(direction)) << command;
    }
    EXPECT_EQ(covered.topLeft(), QPoint(0, 0)) << command;
    EXPECT_NEAR(covered.width(), room().width(), 1) << command;
    EXPECT_NEAR(covered.height(), room().height(), 1) << command;
  }
}

}  // namespace
}  // namespace zevfit::test
