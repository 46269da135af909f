// A whole plot of a window of standard size, operation by operation. The picture is 6468 by 3720,
// the box from (800, 600) to (5668, 3120), its columns 973.6 and its rows 504.

#include <gtest/gtest.h>

#include "tests/support/plot_bench.h"

namespace zevfit {
namespace {

constexpr Stroke kFirstAxis{kText, 1, LineStyle::solid};
constexpr Stroke kDotted{kGrid, 1, LineStyle::dotted};
constexpr Stroke kTick{kText, 2, LineStyle::solid};

void append(Operations& all, const Operations& more) {
  all.insert(all.end(), more.begin(), more.end());
}

/// `width` is that of the pen that the picture had before; `titleX` depends on its earlier size.
/// The legend is at 1080, 2280, 960, 1680, 2160, 2040, 1560, 1440 of 3012 parts of 3720.
Operations legend(double titleX, int width) {
  return {
      ClearOf{kBackground},
      TextOf{{titleX, 100}, "Semivariogram (45 0 NE)", kTitleFont, kText},
      TextOf{{5868, 1333.865}, "Data", kLegendFont, kText},
      TextOf{{5818, 2815.936}, "Model", kLegendFont, kText},
      TextOf{{100, 300}, "g", kGammaFont, kText},
      TextOf{{220, 300}, "(h)", kLegendFont, kText},
      TextOf{{5668, 3270}, "h( )", kLegendFont, kText},
      DiscOf{{6018, 1185.657}, 27, {kData, width, LineStyle::solid}, kData},
      TextOf{{5718, 2074.9}, "   Sill", kLegendFont, kText},
      // Four characters: 6468 - 400 - 4 * 75.
      TextOf{{5768, 350}, "zinc", kLegendFont, kData},
      LineOf{{5868, 2667.729}, {6168, 2519.522}, {kCurve, width, LineStyle::solid}},
      LineOf{{5868, 1926.693}, {6168, 1778.486}, {kSill, width, LineStyle::solid}},
  };
}

Operations axesAndGrid() {
  return {
      LineOf{{800, 600}, {800, 3120}, kFirstAxis},
      LineOf{{800, 3120}, {5668, 3120}, kFirstAxis},
      LineOf{{1773.6, 600}, {1773.6, 3120}, kDotted},
      LineOf{{2747.2, 600}, {2747.2, 3120}, kDotted},
      LineOf{{3720.8, 600}, {3720.8, 3120}, kDotted},
      LineOf{{4694.4, 600}, {4694.4, 3120}, kDotted},
      LineOf{{5668, 600}, {5668, 3120}, kDotted},
      LineOf{{800, 600}, {5668, 600}, kDotted},
      LineOf{{800, 1104}, {5668, 1104}, kDotted},
      LineOf{{800, 1608}, {5668, 1608}, kDotted},
      LineOf{{800, 2112}, {5668, 2112}, kDotted},
      LineOf{{800, 2616}, {5668, 2616}, kDotted},
      LineOf{{1773.6, 3110}, {1773.6, 3130}, kTick},
      LineOf{{2747.2, 3110}, {2747.2, 3130}, kTick},
      LineOf{{3720.8, 3110}, {3720.8, 3130}, kTick},
      LineOf{{4694.4, 3110}, {4694.4, 3130}, kTick},
      LineOf{{5668, 3110}, {5668, 3130}, kTick},
      LineOf{{795, 600}, {810, 600}, kTick},
      LineOf{{795, 1104}, {810, 1104}, kTick},
      LineOf{{795, 1608}, {810, 1608}, kTick},
      LineOf{{795, 2112}, {810, 2112}, kTick},
      LineOf{{795, 2616}, {810, 2616}, kTick},
  };
}

/// Patterns "####.#0" and "#0.#0 "; a number of n characters is n * 75 to the left of its place.
Operations numbers() {
  return {
      TextOf{{750, 3120}, "0", kNumberFont, kText},
      TextOf{{1398.6, 3120}, "20.00", kNumberFont, kText},
      TextOf{{2372.2, 3120}, "40.00", kNumberFont, kText},
      TextOf{{3345.8, 3120}, "60.00", kNumberFont, kText},
      TextOf{{4319.4, 3120}, "80.00", kNumberFont, kText},
      TextOf{{5218, 3120}, "100.00", kNumberFont, kText},
      TextOf{{350, 520}, "10.00 ", kNumberFont, kText},
      TextOf{{425, 1024}, "8.00 ", kNumberFont, kText},
      TextOf{{425, 1528}, "6.00 ", kNumberFont, kText},
      TextOf{{425, 2032}, "4.00 ", kNumberFont, kText},
      TextOf{{425, 2536}, "2.00 ", kNumberFont, kText},
  };
}

/// x = 800 + 48.68 h, y = 3120 - 252 gamma.
Operations data() {
  constexpr Stroke outline{kData, 2, LineStyle::solid};
  return {
      LineOf{{5668, 1860}, {800, 1860}, {kSill, 2, LineStyle::solid}},
      DiscOf{{1286.8, 2616}, 27, outline, kData},
      DiscOf{{2017, 2112}, 27, outline, kData},
      DiscOf{{3234, 1104}, 27, outline, kData},
      DiscOf{{4451, 1608}, 27, outline, kData},
  };
}

/// The nugget of 2 at 100 distances; the first piece has no length.
Operations curve() {
  Operations pieces;
  double from = 848.68;
  for (int i = 1; i <= 100; ++i) {
    const double to = 800 + 48.68 * i;
    pieces.push_back(LineOf{{from, 2616}, {to, 2616}, {kCurve, 2, LineStyle::solid}});
    from = to;
  }
  return pieces;
}

Operations wholePlot(double titleX, int width) {
  Operations all = legend(titleX, width);
  for (const Operations& part : {axesAndGrid(), numbers(), data(), curve()}) append(all, part);
  return all;
}

TEST(WholePlot, IsDrawnInItsOrder) {
  PlotBench bench;
  bench.draw();
  // The title's 23 characters of 120 are centred on the width of the loaded picture, 5436.
  expectOperations(bench.operations(), wholePlot(1338, 1));
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
