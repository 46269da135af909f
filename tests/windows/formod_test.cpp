#include "windows/formod.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QTemporaryDir>
#include <QTest>
#include <fstream>

#include "tests/support/program.h"
#include "windows/fit_panel_widgets.h"

namespace zevfit::test {
namespace {

/// The program with a file of two variables and two directions, the first pair plotted.
class PlotWindowsTest : public testing::Test {
 protected:
  PlotWindowsTest() : program_(folder_.path().toStdString()) {
    const std::string path = folder_.filePath("small.zvm").toStdString();
    std::ofstream(path) << "small\nzevra\n2\nzinc\nlead\n2\n3\n0;0\n90;0\n"
                           "1\n10 0.5 9\n20 1.5 9\n30 2 9\n10 0.25 9\n20 0.75 9\n30 1 9\n"
                           "4\n10 1 9\n20 2 9\n30 3 9\n10 1 9\n20 2 9\n30 8 9\n";
    program_.open(path);
  }

  QMdiArea& area() { return program_.control<QMdiArea>("Area"); }

  Formod* window(const char* key) {
    for (QMdiSubWindow* each : area().subWindowList())
      if (each->windowTitle().startsWith(key)) return dynamic_cast<Formod*>(each);
    return nullptr;
  }

  void plot(int variable, int direction) {
    program_.control<QComboBox>("Combo2").setCurrentIndex(variable - 1);
    program_.control<QComboBox>("Combodirvar").setCurrentIndex(direction - 1);
    program_.control<QAbstractButton>("Command5").click();
  }

  QTemporaryDir folder_;
  Program program_;
};

TEST_F(PlotWindowsTest, FirstDrawingGivesTheStandardSize) {
  const Formod& first = *window("01,01");
  EXPECT_EQ(first.width(), 6576);
  EXPECT_EQ(first.height(), 3852);
  EXPECT_EQ(first.pictureWidth(), 6468);
  EXPECT_EQ(first.pictureHeight(), 3720);
  // 6468 and 3720 twips are 431.2 and 248 pixels.
  EXPECT_EQ(first.widget()->size(), QSize(431, 248));
  EXPECT_EQ(first.findChild<QWidget*>("Picture4")->geometry(), QRect(0, 0, 431, 248));
}

TEST_F(PlotWindowsTest, OverlaysStartHiddenWithTheirCaptions) {
  Formod& first = *window("01,01");
  const std::array captions{"Co", "S1", "S2", "S3"};
  for (int i = 0; i < 4; ++i) {
    const auto* handle = first.findChild<QLabel*>(QString("estru_%1").arg(i));
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(handle->text(), captions[static_cast<std::size_t>(i)]);
    EXPECT_TRUE(handle->isHidden());
    EXPECT_TRUE(handle->font().bold());
    EXPECT_EQ(handle->font().pointSizeF(), 10.5);
  }
  for (const char* name : {"Line1", "Line2", "Label1", "Label6"})
    EXPECT_TRUE(first.findChild<QWidget*>(name)->isHidden()) << name;
  EXPECT_EQ(first.findChild<QLabel*>("Label1")->font().pointSizeF(), 10.5);
  // The hidden label holds the title that it measured last.
  EXPECT_EQ(first.findChild<QLabel*>("Label6")->text(), "Semivariogram (0;0)");
}

TEST_F(PlotWindowsTest, EachPairHasItsWindow) {
  plot(2, 2);
  plot(1, 2);
  EXPECT_EQ(area().subWindowList().size(), 3);
  EXPECT_EQ(window("02,02")->windowTitle(), "02,02  Variable: lead  Direction: 90;0");
  EXPECT_EQ(area().activeSubWindow(), window("01,02"));
  plot(2, 2);
  EXPECT_EQ(area().subWindowList().size(), 3);
  EXPECT_EQ(area().activeSubWindow(), window("02,02"));
}

TEST_F(PlotWindowsTest, ActivationMakesThePairTheCurrentOneAndUpdatesTheLists) {
  plot(2, 2);
  program_.session().use0({1, 1}) = 1;
  program_.session().c0({1, 1}) = 0.25;
  area().setActiveSubWindow(window("01,01"));
  EXPECT_EQ(program_.session().curvar, 1);
  EXPECT_EQ(program_.session().curdir, 1);
  EXPECT_EQ(program_.control<QComboBox>("Combo2").currentIndex(), 0);
  EXPECT_EQ(program_.control<QComboBox>("Combodirvar").currentIndex(), 0);
  EXPECT_EQ(program_.session().ctotal({1, 1}), 0.25);
}

TEST_F(PlotWindowsTest, PlottingDoesNotTakeTheFocusFromAField) {
  auto& field = program_.control<QLineEdit>("Textc0");
  program_.control<QAbstractButton>("est1").click();
  field.setFocus();
  program_.control<QComboBox>("Combo2").setCurrentIndex(1);
  QTest::keyClick(&field, Qt::Key_Return);
  EXPECT_EQ(area().activeSubWindow(), window("02,01"));
  EXPECT_TRUE(field.hasFocus());
}

TEST_F(PlotWindowsTest, AClosedWindowIsLoadedAgainByTheNextDrawing) {
  Formod& first = *window("01,01");
  first.setSize(9000, 6000);
  first.close();
  EXPECT_FALSE(first.isVisible());
  plot(1, 1);
  EXPECT_EQ(area().subWindowList().size(), 1);
  EXPECT_TRUE(first.isVisible());
  EXPECT_EQ(first.width(), 6576);
}

TEST_F(PlotWindowsTest, AMinimisedWindowIsRestored) {
  Formod& first = *window("01,01");
  first.showMinimized();
  plot(1, 1);
  EXPECT_FALSE(first.isMinimized());
  EXPECT_EQ(first.width(), 6576);
}

TEST_F(PlotWindowsTest, PictureFollowsAResize) {
  Formod& first = *window("01,01");
  first.resize(first.size() + QSize(40, 20));
  // 471 and 268 pixels of content are 7065 and 4020 twips.
  EXPECT_EQ(first.width(), 7065 + 108);
  EXPECT_EQ(first.height(), 4020 + 132);
  EXPECT_EQ(first.pictureWidth(), 7065);
  EXPECT_EQ(first.pictureHeight(), 4020);
}

TEST_F(PlotWindowsTest, TheClosingOfOneWindowActivatesAnother) {
  plot(2, 2);
  window("02,02")->close();
  EXPECT_EQ(area().activeSubWindow(), window("01,01"));
  EXPECT_EQ(program_.session().curvar, 1);
}

TEST_F(PlotWindowsTest, SubscriptsBeyondTheTableAreFaults) {
  QMdiArea other;
  FitPanelWidgets panel;
  Fit fit{program_.session(), panel, program_.window(), program_.dialogs()};
  const FaultReport faults = [](std::string_view fault) { ADD_FAILURE() << fault; };
  PlotWindowTable table(other, fit, faults, [] {});
  EXPECT_THROW(table.plotwin({1, 42}), Fault);
  EXPECT_THROW(table.plotwin({42, 1}), Fault);
  EXPECT_THROW(table.plotwin({1, -1}), Fault);
  EXPECT_FALSE(table.isOpen({1, 1}));
  table.plotwin({1, 1});
  EXPECT_FALSE(table.isOpen({1, 1})) << "loaded alone";
}

}  // namespace
}  // namespace zevfit::test
