// What is on a printed sheet's first plot, and that the fit goes on behind it as before.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QSlider>

#include "platform/picture_box.h"
#include "tests/support/full_report.h"
#include "tests/support/two_plots.h"

namespace zevfit::test {
namespace {

class BehindASheet : public testing::Test, protected TwoPlots {
 protected:
  /// The second plot stands on the sheet, the first one is active.
  BehindASheet() : reports_(openReports(program())) {
    plotPair(program(), {1, 2});
    pressPage(reports_, 0, {100, 80});
    area().setActiveSubWindow(&plot(1));
    program().control<QAbstractButton>("est2").click();
  }
  void print() { Program::find<QPushButton>(reports_, "printar").click(); }

  QWidget& reports_;
};

TEST_F(BehindASheet, TheSliderWorksOnTheActivePlot) {
  print();
  EXPECT_EQ(program().printer().calls.back(), "end");
  auto& slider = program().control<QSlider>("HScrolla");
  program().window().activateWindow();
  slider.setFocus(Qt::TabFocusReason);
  const double before = session().a1({1, 1}).number();
  QTest::keyClick(&slider, Qt::Key_PageUp);
  EXPECT_GT(session().a1({1, 1}).number(), before);
  EXPECT_EQ(session().a1({1, 2}).number(), 15);
  EXPECT_EQ(session().current(), (Pair{1, 1}));
  EXPECT_EQ(area().activeSubWindow(), &plot(1));
}

// A nugget of 0.5 in the first plot and of 1 in the second: their curves start differently.
TEST_F(BehindASheet, TheNextThumbnailIsThatOfTheActivePlot) {
  session().c0({1, 2}) = 1;
  pressPage(reports_, 0, {100, 200});
  const QImage before = dynamic_cast<PictureBox&>(Program::find<QWidget>(reports_, "Picture1_0"))
                            .image()
                            .copy(QRect(3, 152, 200, 112));
  print();
  pressPage(reports_, 0, {100, 200});
  EXPECT_EQ(dynamic_cast<PictureBox&>(Program::find<QWidget>(reports_, "Picture1_0"))
                .image()
                .copy(QRect(3, 152, 200, 112)),
            before);
}

// The lines of a plot in the colour of the model: the legend's sample, and the 100 of the curve.
TEST_F(BehindASheet, EachLegendHasTheSameStrokes) {
  pressPage(reports_, 0, {100, 200});
  print();
  std::vector<int> samples;
  for (const LineOf& line : only<LineOf>(program().printer().surface.operations))
    if (line.stroke.colour == session().style.cores.curve() && line.to.x - line.from.x == 300)
      samples.push_back(line.stroke.width);
  EXPECT_EQ(samples, (std::vector<int>{2, 2}));
}

}  // namespace
}  // namespace zevfit::test
