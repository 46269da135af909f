// A plot comes up when it is drawn, and at nothing else that needs its window.
#include <gtest/gtest.h>

#include <QComboBox>

#include "tests/support/full_report.h"
#include "tests/support/two_plots.h"

namespace zevfit::test {
namespace {

class UnaskedPlots : public testing::Test, protected TwoPlots {
 protected:
  /// Closes the second plot while it is the current one and the only one.
  void closeAll() {
    for (const int direction : {1, 2}) plot(direction).close();
    session().curdir = 2;
  }
  void drawFirst() {
    session().curdir = 1;
    program().window().plotvariogram();
    QApplication::processEvents();
    EXPECT_TRUE(plot(1).isVisible());
  }
  void openAndCancelFormat() {
    program().trigger("k10");
    QApplication::processEvents();
    QWidget& format = program().control("Formfont");
    for (auto* button : format.findChildren<QAbstractButton*>(Qt::FindDirectChildrenOnly))
      if (button->objectName() == "Command3") button->click();
    QApplication::processEvents();
    EXPECT_FALSE(format.isVisible());
  }
};

TEST_F(UnaskedPlots, APreviewedPairStaysClosedWhenAnotherIsDrawn) {
  closeAll();
  openAndCancelFormat();
  EXPECT_FALSE(plot(2).isVisible());
  drawFirst();
  EXPECT_FALSE(plot(2).isVisible());
}

TEST_F(UnaskedPlots, APreviewedPairIsNotZoomed) {
  closeAll();
  openAndCancelFormat();
  for (const char* zoom : {"kmais", "kmenos"}) {
    program().trigger(zoom);
    EXPECT_FALSE(plot(2).isVisible()) << zoom;
  }
}

TEST_F(UnaskedPlots, APreviewedPairTakesNoPartInAnArrangement) {
  closeAll();
  openAndCancelFormat();
  drawFirst();
  for (const char* command : {"k5", "k6", "k7"}) {
    program().trigger(command);
    EXPECT_FALSE(plot(2).isVisible()) << command;
  }
}

TEST_F(UnaskedPlots, APrintedPairStaysClosedWhenAnotherIsDrawn) {
  QWidget& reports = openReports(program());
  plotPair(program(), {1, 2});
  pressPage(reports, 0, {100, 80});
  closeAll();
  Program::find<QPushButton>(reports, "printar").click();
  EXPECT_EQ(program().printer().calls.back(), "end");
  EXPECT_FALSE(plot(2).isVisible());
  drawFirst();
  EXPECT_FALSE(plot(2).isVisible());
}

TEST_F(UnaskedPlots, APreviewedPairComesUpWithItsOwnDrawing) {
  closeAll();
  openAndCancelFormat();
  drawFirst();
  plotPair(program(), {1, 2});
  EXPECT_TRUE(plot(2).isVisible());
  EXPECT_EQ(plot(2).width(), 6576) << "like any other first drawing";
  EXPECT_EQ(area().activeSubWindow(), &plot(2));
}

}  // namespace
}  // namespace zevfit::test
