// The preview beside the plot that it is a preview of, operation by operation.

#include "plot/drawing/preview.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/plot_bench.h"

namespace zevfit {
namespace {

using Boxes = std::vector<std::string>;

struct MemoryPreview : PreviewPicture {
  RecordingSurface surface;
  PenState state;
  double width = 1000, height = 500;
  bool isBold = false;

  double pictureWidth() const override { return width; }
  double pictureHeight() const override { return height; }
  Surface& picture() override { return surface; }
  PenState& pen() override { return state; }
  void setPictureSize(double w, double h) override {
    width = w;
    height = h;
  }
  bool bold() const override { return isBold; }
};

struct PreviewBench : PlotBench {
  MemoryPreview picture;
  bool running = false;

  void show() { preview(fit, windows, picture, running); }
  /// Plot and preview as they are once each has been drawn before.
  void settle() {
    draw();
    draw();
    show();
    show();
  }
};

TEST(Preview, DiffersFromThePlotInDiscsNameAndSill) {
  PreviewBench bench;
  Session& session = bench.session;
  setStructure(session, kPair, Line::first, "S", 5, 50);
  session.showsill(kPair) = true;
  session.showsill(kPair.exchanged()) = true;
  bench.settle();
  Operations expected = bench.operations();
  for (Operation& one : expected) {
    if (auto* disc = std::get_if<DiscOf>(&one)) disc->radius = 20;
    // "zinc" has four characters: 4 * 150 / 2 = 300 to the left, and here 4 * 100 / 2 = 200.
    if (auto* text = std::get_if<TextOf>(&one); text && text->text == "zinc") text->at.x += 100;
  }
  EXPECT_EQ(bench.picture.surface.operations, expected);
  EXPECT_FALSE(bench.running);
}

TEST(Preview, ShowsTheSillByItsOwnPair) {
  for (const bool own : {false, true}) {
    PreviewBench bench;
    bench.session.showsill(kPair) = own;
    bench.session.showsill(kPair.exchanged()) = !own;
    bench.settle();
    const auto hasCaption = [](const Operations& operations) {
      for (const TextOf& text : only<TextOf>(operations))
        if (text.text == "   Sill") return true;
      return false;
    };
    EXPECT_EQ(hasCaption(bench.picture.surface.operations), own);
    EXPECT_EQ(hasCaption(bench.operations()), !own) << "the plot looks at the exchanged cell";
    const auto samples = [](const Operations& operations, Colour colour) {
      int count = 0;
      for (const LineOf& line : only<LineOf>(operations)) count += line.stroke.colour == colour;
      return count;
    };
    // The line itself follows the own pair in both; the sample of the legend comes to it.
    EXPECT_EQ(samples(bench.picture.surface.operations, kSill), own ? 2 : 0);
    EXPECT_EQ(samples(bench.operations(), kSill), 1);
  }
}

TEST(Preview, HasTheFixedSizeBehindItsTitle) {
  PreviewBench bench;
  bench.show();
  EXPECT_EQ(bench.picture.width, 6468);
  EXPECT_EQ(bench.picture.height, 3720);
  const auto texts = only<TextOf>(bench.picture.surface.operations);
  // "Semivariogram (45 0 NE)" has 23 characters of 120: centred on the width of 1000 before.
  ASSERT_EQ(texts.front().text, "Semivariogram (45 0 NE)");
  EXPECT_EQ(texts.front().at, Place(500 - 23 * 60, 100));
  bench.show();
  EXPECT_EQ(only<TextOf>(bench.picture.surface.operations).front().at, Place(3234 - 23 * 60, 100));
}

TEST(Preview, IsAsBoldAsItsPicture) {
  PreviewBench bench;
  bench.picture.isBold = true;
  bench.show();
  for (const TextOf& text : only<TextOf>(bench.picture.surface.operations))
    EXPECT_TRUE(text.font.bold) << text.text;
}

TEST(Preview, ChangesTheWindowOfThePairButNotItsPlace) {
  PreviewBench bench;
  bench.draw();
  bench.window().setCaption("other");
  bench.window().fronted = 0;
  bench.window().measuredText.clear();
  bench.session.style.cores.Label1 = 77;
  bench.picture.isBold = true;
  const Operations before = bench.operations();
  bench.show();
  EXPECT_EQ(bench.window().caption(), "01,02  Variable:  zinc   Direction: 45 0 NE");
  EXPECT_EQ(bench.window().overlayForeground, 77);
  EXPECT_EQ(bench.window().overlayBackground, kBackground);
  EXPECT_EQ(bench.window().measuredText, "Semivariogram (45 0 NE)");
  EXPECT_EQ(bench.window().measuredFont, kTitleFont) << "the label is not bold";
  EXPECT_EQ(bench.window().fronted, 0);
  EXPECT_EQ(bench.operations(), before) << "its picture stays";
}

TEST(Preview, LeavesSelectionBoxesAndMinimisedWindowAlone) {
  PreviewBench bench;
  bench.draw();
  bench.session.hasmodel = true;
  bench.session.modelshown = false;
  bench.session.use1(kPair) = 1;
  bench.session.model1(kPair) = "S";
  bench.window().isMinimised = true;
  bench.panel.calls.clear();
  bench.show();
  EXPECT_FALSE(bench.session.modelshown);
  EXPECT_FALSE(bench.panel.ticked(Box::plot2));
  EXPECT_TRUE(bench.window().isMinimised);
  EXPECT_FALSE(bench.running);
}

TEST(Preview, MovesNoSliderForATypedText) {
  PreviewBench bench;
  bench.draw();
  bench.session.sel = Line::nugget;
  bench.panel.setText(Field::c0, "4");
  bench.session.c0typed(kPair) = true;
  const int stood = bench.panel.position(Slider::c0);
  bench.show();
  EXPECT_EQ(bench.panel.position(Slider::c0), stood);
}

TEST(Preview, BringsTheControlsAndTheCurveToThePair) {
  PreviewBench bench;
  bench.draw();
  bench.session.sel = Line::nugget;
  bench.session.c0(kPair) = 4;
  bench.session.use1(kPair) = 1;
  bench.session.model1(kPair) = "G";
  bench.session.ascale = bench.session.c0scale = 0;
  bench.show();
  EXPECT_EQ(bench.panel.text(Field::c0), "4") << "showmodel";
  EXPECT_EQ(bench.panel.letter(Line::first), "G") << "showmodel";
  EXPECT_GT(bench.session.c0scale, 0) << "scalesliders";
  EXPECT_GE(bench.session.curvegam(1), 4) << "modelcurve, above the new nugget";
}

TEST(Preview, GivesTheDistanceAxisItsFirstEnd) {
  PreviewBench bench;
  EXPECT_EQ(bench.session.xmax(kPair), 0);
  bench.show();
  EXPECT_EQ(bench.session.xmax(kPair), 100);
}

TEST(Preview, WithoutAFileSaysSoAndCountsAsFailed) {
  PreviewBench bench;
  bench.session.loaded = false;
  bench.show();
  EXPECT_EQ(bench.dialogs.shown, Boxes{test::kNoFileBox});
  EXPECT_TRUE(bench.running);
  EXPECT_TRUE(bench.picture.surface.operations.empty());
}

TEST(Preview, WithoutAPlotFailsWithoutAWord) {
  for (const bool variable : {true, false}) {
    PreviewBench bench;
    (variable ? bench.session.curvar : bench.session.curdir) = 0;
    bench.show();
    EXPECT_TRUE(bench.running);
    EXPECT_TRUE(bench.dialogs.shown.empty());
  }
}

TEST(Preview, AFaultLeavesItMarkedAsRunning) {
  PreviewBench bench;
  bench.session.ymax(kPair) = 0;  // the axis has no height
  bench.show();
  EXPECT_TRUE(bench.running);
  EXPECT_FALSE(bench.picture.surface.operations.empty()) << "what was drawn stays";
  bench.session.ymax(kPair) = 10;
  bench.show();
  EXPECT_FALSE(bench.running);
}

}  // namespace
}  // namespace zevfit
