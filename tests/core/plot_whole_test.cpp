// A whole plot of a window of standard size, operation by operation. The picture is 6468 by 3720,
// the box from (800, 600) to (5668, 3120), its columns 973.6 and its rows 504.

#include <gtest/gtest.h>

#include "tests/support/whole_plot.h"

namespace zevfit {
namespace {

/// `pen` is the width of the pen that the picture had before; `titleX` depends on its earlier size.
Operations wholePlot(double titleX, int pen) {
  return operationsOf({.left = 0,
                       .top = 0,
                       .width = 6468,
                       .height = 3720,
                       .pen = pen,
                       .ground = ClearOf{kBackground},
                       .titleX = titleX,
                       // Four characters: 6468 - 400 - 4 * 75.
                       .nameX = 5768,
                       .nameColour = kData,
                       .title = kTitleFont,
                       .caption = kLegendFont,
                       .gamma = kGammaFont,
                       .argument = kLegendFont,
                       .distance = kLegendFont,
                       .number = kNumberFont});
}

TEST(WholePlot, IsDrawnInItsOrder) {
  PlotBench bench;
  bench.draw();
  // The title's 23 characters of 120 are centred on the width of the loaded picture, 5436.
  expectOperations(bench.operations(), wholePlot(1338, 1));
}

/// The places of some of them, worked out without the builder: the legend is at parts of 3012 of
/// 3720, x = 800 + 48.68 h, y = 3120 - 252 gamma.
TEST(WholePlot, HasItsPlaces) {
  PlotBench bench;
  bench.draw();
  const Operations& all = bench.operations();
  const std::vector<std::pair<std::size_t, Operation>> rows{
      {2, TextOf{{5868, 1333.865}, "Data", kLegendFont, kText}},
      {6, TextOf{{5668, 3270}, "h( )", kLegendFont, kText}},
      {7, DiscOf{{6018, 1185.657}, 27, {kData, 1, LineStyle::solid}, kData}},
      {11, LineOf{{5868, 1926.693}, {6168, 1778.486}, {kSill, 1, LineStyle::solid}}},
      {14, LineOf{{1773.6, 600}, {1773.6, 3120}, {kGrid, 1, LineStyle::dotted}}},
      {23, LineOf{{800, 2616}, {5668, 2616}, {kGrid, 1, LineStyle::dotted}}},
      {28, LineOf{{5668, 3110}, {5668, 3130}, {kText, 2, LineStyle::solid}}},
      {33, LineOf{{795, 2616}, {810, 2616}, {kText, 2, LineStyle::solid}}},
      {35, TextOf{{1398.6, 3120}, "20.00", kNumberFont, kText}},
      {40, TextOf{{350, 520}, "10.00 ", kNumberFont, kText}},
      {45, LineOf{{5668, 1860}, {800, 1860}, {kSill, 2, LineStyle::solid}}},
      {49, DiscOf{{4451, 1608}, 27, {kData, 2, LineStyle::solid}, kData}},
      {51, LineOf{{848.68, 2616}, {897.36, 2616}, {kCurve, 2, LineStyle::solid}}},
      {149, LineOf{{5619.32, 2616}, {5668, 2616}, {kCurve, 2, LineStyle::solid}}},
  };
  for (const auto& [at, expected] : rows) EXPECT_EQ(all.at(at), expected) << "operation " << at;
}

TEST(WholePlot, ComesAgainWithTheThickerPenAndItsTitleCentred) {
  PlotBench bench;
  bench.draw();
  bench.draw();
  expectOperations(bench.operations(), wholePlot(1854, 2));
}

TEST(WholePlot, IsOnceOnThePictureWhereTheControlsHaveDrawnMeanwhile) {
  PlotBench bench;
  bench.draw();
  bench.drawings = 0;
  // The nugget is selected, the field still empty: showing the model sets it, and this draws.
  bench.session.sel = Line::nugget;
  bench.draw();
  EXPECT_GT(bench.drawings, 1);
  expectOperations(bench.operations(), wholePlot(1854, 2));
}

TEST(WholePlot, TakesTheStartStyleBeforeAnyDialogWasOpened) {
  PlotBench bench;
  bench.session.style = GraphStyle();
  bench.session.axiscolor = kBlack;
  bench.draw();
  const Operations& all = bench.operations();
  EXPECT_EQ(all.front(), Operation(ClearOf{16777215}));
  struct {
    const char* text;
    Font font;
    Colour colour;
  } const rows[] = {
      {"Semivariogram (45 0 NE)", {"Times New Roman", 10.0F}, 0},
      {"Data", {"Times New Roman", 7.8F}, 0},
      {"g", {"Symbol", 7.8F}, 0},
      {"zinc", {"Times New Roman", 7.8F}, 32768},
      {"100.00", {"Times New Roman", 7.8F}, 0},
  };
  for (const auto& row : rows) {
    const std::vector<TextOf> found = textsNamed(all, row.text);
    ASSERT_EQ(found.size(), 1U) << row.text;
    EXPECT_EQ(found[0].font, row.font) << row.text;
    EXPECT_EQ(found[0].colour, row.colour) << row.text;
  }
  EXPECT_EQ(linesOf(all, 16711680).size(), 101U);
  EXPECT_EQ(linesOf(all, 255).size(), 2U);
}

}  // namespace
}  // namespace zevfit
