#include "windows/printcolection.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QMdiArea>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTabBar>

#include "platform/picture_box.h"
#include "tests/support/full_report.h"
#include "tests/support/small_files.h"
#include "tests/support/temporary_folder.h"

namespace zevfit::test {
namespace {

using Boxes = std::vector<std::string>;

/// The program with a file of two variables and two directions, the first pair plotted, and the
/// print collection on show.
class PrintCollection : public testing::Test, protected TemporaryFolder {
 protected:
  PrintCollection() : program_(folder()) {
    program_.openBytes(kTwoVariables);
    reports_ = &openReports(program_);
    program_.dialogs().shown.clear();
  }

  template <class Widget = QWidget>
  Widget& control(const char* name) {
    return Program::find<Widget>(*reports_, name);
  }
  PictureBox& page(int slot) {
    auto& found = control(qPrintable(QString("Picture1_%1").arg(slot)));
    return dynamic_cast<PictureBox&>(found);
  }
  QString text(const char* label) { return control<QLabel>(label).text(); }
  void selectTab(int tab) { control<QTabBar>("TabStrip1").setCurrentIndex(tab - 1); }
  void press(QPoint at, int slot = 0) { pressPage(*reports_, slot, at); }
  void pointAt(QPoint at) {
    QTest::mouseMove(reports_->windowHandle(), page(0).mapTo(reports_, at));
  }
  Boxes& shown() { return program_.dialogs().shown; }

  /// Dots of a colour on a page, within a part of it.
  int dots(Colour colour, const QRect& part, int slot = 0) {
    const QImage& image = page(slot).image();
    int count = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
      for (int x = part.left(); x <= part.right(); ++x)
        count += toColour(image.pixelColor(x, y)) == colour ? 1 : 0;
    return count;
  }

  // One column: cells of 210 by 121 pixels, the first from 28 on, the second from 148 on.
  static constexpr QPoint kFirst{100, 80}, kSecond{100, 200};
  static constexpr QRect kFirstCell{3, 31, 200, 112}, kSecondCell{3, 152, 200, 112};

  Program program_;
  QWidget* reports_;
};

TEST_F(PrintCollection, HasItsCaptionsAndStartStates) {
  EXPECT_EQ(reports_->windowTitle(), "Print Preview");
  EXPECT_FALSE(reports_->isModal());
  const auto& tabs = control<QTabBar>("TabStrip1");
  ASSERT_EQ(tabs.count(), 6);
  for (int i = 0; i < 6; ++i) EXPECT_EQ(tabs.tabText(i), QString("Report %1").arg(i + 1));
  EXPECT_EQ(text("Label3"), "Columns:");
  EXPECT_EQ(text("Label5"), "1");
  EXPECT_TRUE(control<QLabel>("Label5").font().bold());
  EXPECT_EQ(control<QPushButton>("Command1").text(), "OK");
  EXPECT_EQ(control<QCheckBox>("Check1").text(), "Delete");
  EXPECT_FALSE(control<QCheckBox>("Check1").isChecked());
  EXPECT_EQ(control<QPushButton>("printar").text(), "Print");
  EXPECT_EQ(control<QPushButton>("printar").toolTip(), "Print the selected Report");
  for (const char* label : {"Labelvar", "Labeldir"}) {
    EXPECT_EQ(text(label), "-");
    EXPECT_TRUE(control<QLabel>(label).font().bold());
  }
  QStringList captions;
  for (const QGroupBox* frame : reports_->findChildren<QGroupBox*>()) captions << frame->title();
  EXPECT_EQ(captions, (QStringList{"Settings", "Image", "Legend"}));
  QStringList labels;
  for (const QLabel* label : reports_->findChildren<QLabel*>()) labels << label->text();
  EXPECT_TRUE(labels.contains("Variable:"));
  EXPECT_TRUE(labels.contains("Direction:"));
}

TEST_F(PrintCollection, HasItsSizesAndPlaces) {
  EXPECT_EQ(reports_->size(), QSize(369, 385)) << "5532 by 5772 twips";
  EXPECT_EQ(page(0).widthTwips(), 3147);
  EXPECT_EQ(page(0).heightTwips(), 4452);
  const auto& small = dynamic_cast<PictureBox&>(control("Picture2"));
  EXPECT_EQ(small.widthTwips(), 602);
  EXPECT_EQ(small.heightTwips(), 852);
  // 200 twips from the edges, and from the page to the frames.
  const QPoint corner = page(0).mapTo(reports_, QPoint());
  EXPECT_EQ(corner.x(), 13);
  EXPECT_EQ(corner.y() - control("TabStrip1").geometry().bottom() - 1, 13);
  for (const char* name : {"printar", "Bar1"})
    EXPECT_EQ(control(name).x(), corner.x() + 210 + 13) << name;
  for (const QGroupBox* frame : reports_->findChildren<QGroupBox*>())
    EXPECT_EQ(frame->x(), corner.x() + 210 + 13) << frame->title().toStdString();
}

TEST_F(PrintCollection, TakesItsSizeAtEachActivation) {
  reports_->resize(600, 700);
  QEvent activated(QEvent::WindowActivate);
  QApplication::sendEvent(reports_, &activated);
  EXPECT_EQ(reports_->size(), QSize(369, 385));
  reports_->setWindowState(Qt::WindowMinimized);
  reports_->resize(600, 700);
  QApplication::sendEvent(reports_, &activated);
  EXPECT_EQ(reports_->size(), QSize(600, 700));
}

TEST_F(PrintCollection, ItsCommandBringsItBackToItsNormalState) {
  reports_->setWindowState(Qt::WindowMinimized);
  program_.trigger("kp");
  EXPECT_TRUE(reports_->isVisible());
  EXPECT_FALSE(reports_->isMinimized());
  EXPECT_TRUE(program_.window().isEnabled());
}

TEST_F(PrintCollection, ClosingHidesItAndKeepsItsReports) {
  press(kFirst);
  reports_->close();
  EXPECT_FALSE(reports_->isVisible());
  EXPECT_GT(dots(kRed, kFirstCell), 0);
  EXPECT_EQ(&openReports(program_), reports_);
  EXPECT_GT(dots(kRed, kFirstCell), 0);
  pointAt(kFirst);
  EXPECT_EQ(text("Labelvar"), "zinc");
}

TEST_F(PrintCollection, ATabShowsItsPage) {
  selectTab(3);
  for (int slot = 0; slot < 6; ++slot) EXPECT_EQ(page(slot).isVisible(), slot == 2) << slot;
  EXPECT_EQ(page(2).mapTo(reports_, QPoint()).x(), 13);
}

TEST_F(PrintCollection, AClickOnTheTabOnShowTakesItUpAnew) {
  auto& tabs = control<QTabBar>("TabStrip1");
  auto& slider = control<QSlider>("HScroll1");
  for (const int tab : {0, 1}) {
    tabs.setCurrentIndex(tab);
    control<QCheckBox>("Check1").setChecked(true);
    slider.setValue(2);
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(tab).center());
    EXPECT_FALSE(control<QCheckBox>("Check1").isChecked());
    EXPECT_EQ(slider.value(), 1);
    EXPECT_EQ(text("Label5"), "1");
  }
}

TEST_F(PrintCollection, TheSliderGoesFromOneToThree) {
  const auto& slider = control<QSlider>("HScroll1");
  EXPECT_EQ(slider.minimum(), 1);
  EXPECT_EQ(slider.maximum(), 3);
}

TEST_F(PrintCollection, AThumbnailIsPlacedByEachButton) {
  const int before = dots(kBlack, page(0).rect());
  EXPECT_EQ(before, 0);
  for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
    QTest::mouseClick(&page(0), button, {}, kSecond);
    EXPECT_GT(dots(kRed, kSecondCell), 0);
    control<QPushButton>("Command1").click();
    EXPECT_EQ(dots(kRed, kSecondCell), 0);
  }
  press(kSecond);
  EXPECT_EQ(dots(kRed, kFirstCell), 0);
  EXPECT_GT(dots(kRed, kSecondCell), 100) << "the line of the variance";
  // Three lines across and one at the right.
  EXPECT_GT(dots(kBlack, page(0).rect()), 3 * 200);
}

TEST_F(PrintCollection, DeleteEmptiesACell) {
  press(kFirst);
  press(kSecond);
  control<QCheckBox>("Check1").setChecked(true);
  press(kFirst);
  EXPECT_EQ(dots(kWhite, kFirstCell), kFirstCell.width() * kFirstCell.height());
  EXPECT_GT(dots(kRed, kSecondCell), 0);
  pointAt(kSecond);
  EXPECT_EQ(text("Labelvar"), "zinc");
  pointAt(kFirst);
  EXPECT_EQ(text("Labelvar"), "");
}

TEST_F(PrintCollection, ControlsOutOfSightHoldTheAppliedColumnsAndABlankCell) {
  EXPECT_EQ(text("Label1"), "1");
  EXPECT_FALSE(control<QLabel>("Label1").isVisible());
  auto& blank = control<PictureBox>("apagar");
  EXPECT_FALSE(blank.isVisible());
  control<QSlider>("HScroll1").setValue(3);
  EXPECT_EQ(text("Label1"), "1") << "the slider alone applies nothing";
  control<QPushButton>("Command1").click();
  EXPECT_EQ(text("Label1"), "3");
  press(kFirst);
  // 3147 / 3 = 1049, over 1.7387: 603.32.
  EXPECT_EQ(blank.widthTwips(), 1049);
  EXPECT_NEAR(blank.heightTwips(), 603.32, 0.01);
  QImage white = blank.image();
  white.fill(Qt::white);
  EXPECT_EQ(blank.image(), white);
}

TEST_F(PrintCollection, DeleteDoesNotOutliveAChangeOfPlot) {
  auto& box = control<QCheckBox>("Check1");
  box.setChecked(true);
  selectTab(2);
  EXPECT_FALSE(box.isChecked());
  box.setChecked(true);
  plotPair(program_, {2, 2});
  EXPECT_FALSE(box.isChecked()) << "another window became the active one";
  box.setChecked(true);
  auto& picture =
      program_.control<QMdiArea>("Area").activeSubWindow()->findChild<QWidget*>("Picture4")[0];
  QTest::mouseClick(&picture, Qt::LeftButton, {}, {20, 20});
  EXPECT_FALSE(box.isChecked()) << "a click on the plot";
}

TEST_F(PrintCollection, WithoutAPlotAClickAsksForOne) {
  program_.session().curvar = 0;
  press(kFirst);
  EXPECT_EQ(shown(), Boxes{"plain: Please select variogram plot first!"});
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(PrintCollection, ThePointerTellsWhatACellHolds) {
  plotPair(program_, {2, 2});
  press(kSecond);
  pointAt(kSecond);
  EXPECT_EQ(text("Labelvar"), "lead");
  EXPECT_EQ(text("Labeldir"), "90;0");
  pointAt({100, 5});
  EXPECT_EQ(text("Labelvar"), "");
  EXPECT_EQ(text("Labeldir"), "");
}

TEST_F(PrintCollection, ThePointerTakesItsNamesFromTheFileLoadedLater) {
  press(kFirst);
  program_.open(write("other.zvm", "other\nzevra\n1\ncopper\n1\n1\n45;0\n1\n10 0.5 9\n"));
  pointAt(kFirst);
  EXPECT_EQ(text("Labelvar"), "copper");
  EXPECT_EQ(text("Labeldir"), "45;0");
}

TEST_F(PrintCollection, TheSlidersArrowsChangeTheNumberAlone) {
  press(kFirst);
  auto& slider = control<QSlider>("HScroll1");
  QTest::keyClick(&slider, Qt::Key_Right);
  EXPECT_EQ(text("Label5"), "2");
  EXPECT_GT(dots(kRed, kFirstCell), 0);
  control<QPushButton>("Command1").click();
  EXPECT_EQ(dots(kRed, kFirstCell), 0);
  // The line between the columns, 1573.5 twips from the left.
  EXPECT_EQ(dots(kBlack, {104, 40, 1, 200}), 200);
}

TEST_F(PrintCollection, DraggingTheThumbEmptiesThePageAtOnce) {
  press(kFirst);
  auto& slider = control<QSlider>("HScroll1");
  QSignalSpy moved(&slider, &QSlider::sliderMoved), changed(&slider, &QSlider::valueChanged);
  slider.setSliderDown(true);
  slider.setSliderPosition(3);
  EXPECT_EQ(moved.count(), 1);
  EXPECT_EQ(changed.count(), 0);
  EXPECT_EQ(dots(kRed, kFirstCell), 0);
  EXPECT_EQ(text("Label5"), "1") << "until the thumb is let go";
  slider.setSliderDown(false);
  EXPECT_EQ(text("Label5"), "3");
  // The cell is still in use, and now the first of three columns.
  pointAt({30, 20});
  EXPECT_EQ(text("Labelvar"), "zinc");
}

TEST_F(PrintCollection, PrintsTheSelectedReport) {
  press(kFirst);
  control<QPushButton>("printar").click();
  EXPECT_EQ(program_.printer().calls, (Boxes{"dialog", "start 11907 16839.9", "end"}));
  std::size_t titles = 0;
  for (const TextOf& text : only<TextOf>(program_.printer().surface.operations))
    titles += text.text == "Semivariogram (0;0)" ? 1U : 0U;
  EXPECT_EQ(titles, 1U);
  EXPECT_EQ(control<QProgressBar>("Bar1").value(), 0);
  EXPECT_EQ(control<QProgressBar>("Bar1").minimum(), 0);
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_TRUE(shown().empty());
}

// Variances of 1 and 4.
TEST_F(PrintCollection, BehindAPrintedPlotTheVarianceIsThatOfTheCurrentOneAgain) {
  press(kFirst);
  plotPair(program_, {2, 1});
  program_.control<QAbstractButton>("est1").click();
  auto& variance = program_.control<QLabel>("Labelvariance");
  ASSERT_EQ(variance.text(), "4.");
  control<QPushButton>("printar").click();
  EXPECT_EQ(variance.text(), "4.");
  QTest::mouseClick(&variance, Qt::LeftButton);
  EXPECT_EQ(program_.session().c0({2, 1}).number(), 4);
  // Neither does a plot that is only previewed leave its own.
  program_.trigger("k10");
  Program::find<QAbstractButton>(program_.control("Formfont"), "Command3").click();
  EXPECT_EQ(variance.text(), "4.");
}

TEST_F(PrintCollection, ShowsTheHourglassAndTheBarMeanwhile) {
  giveColumns(*reports_, 3);
  press({30, 20});
  int bar = -1, maximum = -1;
  bool waiting = false;
  program_.printer().onSheet = [&] {
    bar = control<QProgressBar>("Bar1").value();
    maximum = control<QProgressBar>("Bar1").maximum();
    waiting = QGuiApplication::overrideCursor() != nullptr;
  };
  control<QPushButton>("printar").click();
  EXPECT_EQ(bar, 1);
  EXPECT_EQ(maximum, 3);
  EXPECT_TRUE(waiting);
}

TEST_F(PrintCollection, ACancelledDialogSaysSoAndTheProgramGoesOn) {
  program_.printer().refuses = "dialog";
  control<QPushButton>("printar").click();
  EXPECT_EQ(shown(), Boxes{"plain: cannot print!"});
  EXPECT_EQ(program_.printer().calls, Boxes{"dialog"});
  program_.printer().refuses.clear();
  control<QPushButton>("printar").click();
  EXPECT_EQ(shown().size(), 1U);
}

TEST_F(PrintCollection, AWindowThatServedToMeasureATitleStaysAway) {
  press(kFirst);
  // The cell now names a pair that has no window.
  program_.open(write("other.zvm",
                      "other\nzevra\n2\nzinc\nlead\n2\n1\n0;0\n90;0\n"
                      "1\n10 0.5 9\n10 0.5 9\n4\n10 1 9\n10 1 9\n"));
  program_.control<QMdiArea>("Area").closeAllSubWindows();
  control<QPushButton>("printar").click();
  const auto windows = program_.control<QMdiArea>("Area").subWindowList();
  for (const QMdiSubWindow* window : windows) EXPECT_FALSE(window->isVisible());
  plotPair(program_, {2, 2});
  int visible = 0;
  for (const QMdiSubWindow* window : program_.control<QMdiArea>("Area").subWindowList())
    visible += window->isVisible() ? 1 : 0;
  EXPECT_EQ(visible, 1);
  plotPair(program_, {1, 1});
  EXPECT_EQ(program_.control<QMdiArea>("Area").activeSubWindow()->windowTitle(),
            "01,01  Variable: zinc  Direction: 0;0");
}

TEST_F(PrintCollection, IsWorkedByKeysAlone) {
  page(0).setFocus();
  QTest::keyClick(&page(0), Qt::Key_Down);
  QTest::keyClick(&page(0), Qt::Key_Down);
  QTest::keyClick(&page(0), Qt::Key_Space);
  EXPECT_GT(dots(kRed, kSecondCell), 0);
  EXPECT_EQ(dots(kRed, kFirstCell), 0);
  EXPECT_EQ(text("Labelvar"), "zinc") << "the cell under the keys";
  QTest::keyClick(&page(0), Qt::Key_Up);
  EXPECT_EQ(text("Labelvar"), "");
  QTest::keyClick(&page(0), Qt::Key_Up);
  QTest::keyClick(&page(0), Qt::Key_Left);
  QTest::keyClick(&page(0), Qt::Key_Right);
  QTest::keyClick(&page(0), Qt::Key_Return);
  EXPECT_GT(dots(kRed, kFirstCell), 0);
}

TEST_F(PrintCollection, TheKeysCellStaysInTheGrid) {
  giveColumns(*reports_, 3);
  page(0).setFocus();
  for (int i = 0; i < 10; ++i) {
    QTest::keyClick(&page(0), Qt::Key_Down);
    QTest::keyClick(&page(0), Qt::Key_Right);
  }
  QTest::keyClick(&page(0), Qt::Key_Space);
  pointAt(middleOfThird(7, 3));
  EXPECT_EQ(text("Labelvar"), "zinc");
  // Of one column there is no third.
  control<QSlider>("HScroll1").setValue(1);
  control<QPushButton>("Command1").click();
  QTest::keyClick(&page(0), Qt::Key_Space);
  EXPECT_GT(dots(kRed, kSecondCell), 0);
}

}  // namespace
}  // namespace zevfit::test
