// The area of the plots: its scroll bars, with maximised and with minimised plots.
#include <gtest/gtest.h>

#include <QScrollBar>

#include "tests/support/two_plots.h"

namespace zevfit::test {
namespace {

/// Counts the sizes that a widget takes; from the hundredth on it takes none, for a test to end.
class Sizes : public QObject {
 public:
  explicit Sizes(QWidget& of) { of.installEventFilter(this); }
  bool eventFilter(QObject* /*of*/, QEvent* event) override {
    return event->type() == QEvent::Resize && ++count_ >= 100;
  }
  int count() const { return count_; }

 private:
  int count_ = 0;
};

class AreaOfPlots : public testing::Test, protected TwoPlots {
 protected:
  AreaOfPlots() { area().setActiveSubWindow(&plot(1)); }

  /// The area without scroll bars.
  QSize room() { return area().maximumViewportSize(); }
  QRect view() { return area().viewport()->rect(); }
  QWidget& frame(int direction) { return plot(direction); }
  void maximise() {
    area().setActiveSubWindow(&plot(1));
    plot(1).showMaximized();
    QApplication::processEvents();
  }
  /// Plot 2 in front, 300 by 200, and in view as far as `width`.
  void hangOut(int width) {
    area().setActiveSubWindow(&plot(2));
    frame(2).setGeometry(room().width() - width, 200, 300, 200);
    QApplication::processEvents();
  }
};

TEST_F(AreaOfPlots, IsScrolledToAPlotOutside) {
  hangOut(100);
  EXPECT_LT(view().height(), room().height());
  EXPECT_EQ(area().horizontalScrollBar()->maximum(), 200);
}

// It was once as much higher as the scroll bar that went when it became the active one.
TEST_F(AreaOfPlots, AMaximisedPlotKeepsItsSizeUnderThePressThatActivatesIt) {
  maximise();
  hangOut(100);
  const QRect whole = frame(1).geometry();
  EXPECT_EQ(whole, QRect(QPoint(), room()));
  press(inPicture(1, {60, 60}));
  ASSERT_EQ(area().activeSubWindow(), &plot(1));
  EXPECT_EQ(frame(1).geometry(), whole);
  release(inPicture(1, {90, 80}));
  EXPECT_EQ(frame(1).geometry(), whole);
  plot(1).showNormal();
  QApplication::processEvents();
  EXPECT_EQ(area().horizontalScrollBar()->maximum(), 200) << "plot 2 can be scrolled to";
}

TEST_F(AreaOfPlots, APlotThatIsMaximisedInAScrolledAreaFillsIt) {
  hangOut(100);
  const QRect outside = frame(2).geometry();
  area().horizontalScrollBar()->setValue(150);
  maximise();
  EXPECT_EQ(frame(1).geometry(), QRect(QPoint(), room()));
  EXPECT_EQ(frame(2).geometry(), outside);
  plot(1).close();
  QApplication::processEvents();
  EXPECT_EQ(area().horizontalScrollBar()->maximum(), 200);
}

TEST_F(AreaOfPlots, ArrangedPlotsLeaveNoPlotMaximisedAndTheScrollBarsToCome) {
  for (const char* command : {"k5", "k6", "k7"}) {
    maximise();
    hangOut(100);
    program().trigger(command);
    QApplication::processEvents();
    EXPECT_EQ(view().size(), room()) << command;
    hangOut(100);
    EXPECT_LT(view().height(), room().height()) << command;
  }
}

// Without scroll bars nothing else would lead to it.
TEST_F(AreaOfPlots, APlotOutOfViewComesInFrontOfAMaximisedOne) {
  hangOut(-50);
  maximise();
  session().setCurrent({1, 2});
  program().window().plotvariogram();
  EXPECT_EQ(area().activeSubWindow(), &plot(2));
  EXPECT_EQ(frame(2).geometry(), QRect(room().width() - 300, 200, 300, 200));
  program().window().resize(program().window().size() - QSize(310, 0));
  QApplication::processEvents();
  EXPECT_EQ(frame(2).geometry(), QRect(room().width() - 300, 200, 300, 200));
}

// A part of it in view can be pressed, and must not move under the press.
TEST_F(AreaOfPlots, APlotPartlyInViewStaysInItsPlaceInFrontOfAMaximisedOne) {
  hangOut(40);
  maximise();
  area().setActiveSubWindow(&plot(2));
  EXPECT_EQ(frame(2).geometry(), QRect(room().width() - 40, 200, 300, 200));
}

// The scroll bars once lifted a minimised plot that hung over the edge, went, and came again,
// without end: those of one side took the room of another window, and so came those of the other.
TEST_F(AreaOfPlots, AMinimisedPlotOfAnotherHeightLeavesItAtRest) {
  for (const int direction : {2, 1}) {
    area().setActiveSubWindow(&plot(direction));
    plot(direction).showMinimized();
  }
  auto* wide = area().addSubWindow(new QWidget);
  wide->show();
  wide->setGeometry(0, 0, room().width(), 300);
  QApplication::processEvents();
  ASSERT_TRUE(plot(1).isMinimized() && plot(2).isMinimized());
  const QSize least = frame(2).size();
  for (const int direction : {1, 2}) {
    const Sizes sizes(*area().viewport());
    frame(3 - direction).resize(least);
    frame(direction).resize(least + QSize(0, 6));
    for (int i = 0; i < 4; ++i) {
      program().window().resize(program().window().size() + QSize(0, 30));
      QApplication::processEvents();
    }
    EXPECT_LT(sizes.count(), 20) << direction;
    EXPECT_EQ(frame(1).geometry(), QRect(QPoint(0, room().height() - least.height()), least));
    EXPECT_EQ(frame(2).geometry(), frame(1).geometry().translated(least.width(), 0));
  }
}

}  // namespace
}  // namespace zevfit::test
