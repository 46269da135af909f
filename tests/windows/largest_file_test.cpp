// The largest file that the program takes, and its last pair through the whole program.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <algorithm>

#include "platform/picture_box.h"
#include "tests/support/full_report.h"
#include "tests/support/model_lines.h"
#include "tests/support/test_dialog.h"
#include "windows/formod.h"

namespace zevfit::test {
namespace {

constexpr int kVariables = 40, kDirections = 20;
constexpr Pair kLast{kVariables, kDirections};

class LargestFile : public TestDialog {
 protected:
  LargestFile() {
    std::string bytes = "largest\nzevra\n40\n";
    for (int v = 1; v <= kVariables; ++v) bytes += "v" + std::to_string(v) + "\n";
    bytes += "20\n2\n";
    for (int d = 1; d <= kDirections; ++d) bytes += std::to_string(d * 5) + ";0\n";
    for (int v = 1; v <= kVariables; ++v) {
      bytes += "1\n";
      for (int d = 1; d <= kDirections; ++d) bytes += "10 0.5 9\n20 1 9\n";
    }
    path_ = write("largest.zvm", bytes);
    program_.open(path_);
    // The cross model of the last variable: sills of 0.25 under those of 1 of the two before.
    for (int v = kVariables - 2; v <= kVariables; ++v)
      for (int d = 1; d <= kDirections; ++d)
        setStructure(session(), {v, d}, Line::first, "S", v == kVariables ? 0.25 : 1, 15);
    program_.dialogs().shown.clear();
  }

  Formod& lastPlot() {
    for (QMdiSubWindow* window : program_.control<QMdiArea>("Area").subWindowList())
      if (window->windowTitle().startsWith("40,20")) return dynamic_cast<Formod&>(*window);
    throw std::runtime_error("no plot");
  }
  /// Dots of about that colour in the picture of the last plot, within a part of it in pixels.
  int dots(const QColor& colour, const QRect& part) {
    const QImage& image = Program::find<QWidget>(lastPlot(), "Picture4").grab().toImage();
    int found = 0;
    for (int y = part.top(); y <= part.bottom(); ++y)
      for (int x = part.left(); x <= part.right(); ++x)
        found += image.pixelColor(x, y) == colour ? 1 : 0;
    return found;
  }

  std::string path_;
};

TEST_F(LargestFile, PlotsItsLastPairWithoutTheSillInTheLegend) {
  plotPair(program_, {kVariables, kDirections});
  EXPECT_EQ(program_.dialogs().shown, Lines{});
  EXPECT_TRUE(lastPlot().isVisible());
  EXPECT_EQ(lastPlot().windowTitle(), "40,20  Variable: v40  Direction: 100;0");
  // The variance of 1 lies below the top of 1.06, in red; the column of the legend has none of it.
  const QColor red(255, 0, 0), green(0, 128, 0);
  EXPECT_GT(dots(red, {60, 40, 300, 30}), 100);
  EXPECT_EQ(dots(red, {380, 40, 50, 200}), 0);
  EXPECT_GT(dots(green, {60, 40, 300, 160}), 10);
}

TEST_F(LargestFile, TakesTheSlidersAndBoxesForItsLastPair) {
  plotPair(program_, {kVariables, kDirections});
  program_.control<QAbstractButton>("est2").click();
  auto& slider = program_.control<QSlider>("HScrolla");
  slider.setFocus(Qt::TabFocusReason);
  const double before = session().a1(kLast).number();
  QTest::keyClick(&slider, Qt::Key_PageUp);
  EXPECT_GT(session().a1(kLast).number(), before);
  program_.control<QCheckBox>("psill").click();
  program_.control<QAbstractButton>("Command5").click();
  EXPECT_FALSE(session().showsill(kLast));
  EXPECT_EQ(program_.dialogs().shown, Lines{});
}

TEST_F(LargestFile, TestsItsLastVariables) {
  openDialog();
  choose({kVariables - 3, kVariables - 2, kVariables - 1, kDirections - 3, kDirections - 2,
          kDirections - 1});
  press("Command1");
  EXPECT_EQ(shownTree(), (Lines{"Test Results, 4", " Main Direction:(90;0), 1",
                                " Minor Direction 1:(95;0), 1", " Minor Direction 2:(100;0), 1"}));
}

TEST_F(LargestFile, PrintsItsLastPair) {
  QWidget& reports = openReports(program_);
  plotPair(program_, {kVariables, kDirections});
  pressPage(reports, 0, {100, 80});
  Program::find<QPushButton>(reports, "printar").click();
  EXPECT_EQ(program_.dialogs().shown, Lines{});
  EXPECT_EQ(program_.printer().calls.back(), "end");
  Lines texts;
  for (const TextOf& text : only<TextOf>(program_.printer().surface.operations))
    texts.push_back(text.text);
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "Semivariogram (100;0)"), 1);
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "v40"), 1);
  EXPECT_EQ(std::count(texts.begin(), texts.end(), "   Sill"), 0);
}

TEST_F(LargestFile, SavesItsLastPair) {
  plotPair(program_, {kVariables, kDirections});
  program_.trigger("k11");
  EXPECT_EQ(program_.dialogs().shown, (Lines{"confirm: Save  current models to file: " + path_,
                                             "plain: Models saved to file:" + path_}));
  setStructure(session(), kLast, Line::first, "E", 0.5, 1);
  program_.open(path_);
  EXPECT_EQ(session().model1(kLast), "S");
  EXPECT_EQ(session().c1(kLast).number(), 0.25);
  EXPECT_EQ(session().a1(kLast).number(), 15);
}

}  // namespace
}  // namespace zevfit::test
