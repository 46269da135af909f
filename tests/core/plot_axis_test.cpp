#include <gtest/gtest.h>

#include "tests/support/plot_bench.h"

namespace zevfit {
namespace {

std::vector<std::string> wordings(const std::vector<TextOf>& texts) {
  std::vector<std::string> found;
  found.reserve(texts.size());
  for (const TextOf& text : texts) found.push_back(text.text);
  return found;
}

TEST(PlotGrid, IsDrawnInTheColourOfTheBackgroundToo) {
  PlotBench bench;
  bench.session.axiscolor = kBackground;
  bench.draw();
  const std::vector<LineOf> grid = linesOf(bench.operations(), kBackground);
  ASSERT_EQ(grid.size(), 10U);
  for (const LineOf& line : grid)
    EXPECT_EQ(line.stroke, (Stroke{kBackground, 1, LineStyle::dotted}));
}

// ymin -10, ymax 10: a step of 4.
TEST(PlotNumbers, SayZeroAtTheOriginOfANegativeAxis) {
  PlotBench bench;
  bench.session.ymin(kPair) = -10;
  bench.draw();
  EXPECT_EQ(wordings(numbersOf(bench.operations())),
            (std::vector<std::string>{"20.00", "40.00", "60.00", "80.00", "100.00", "10.00 ",
                                      "6.00 ", "2.00 ", "-2.00 ", "-6.00 "}));
  EXPECT_EQ(textsNamed(bench.operations(), "0"),
            (std::vector<TextOf>{{{750, 3120}, "0", kNumberFont, kText}}));
}

TEST(PlotNumbers, TakeThePatternsOfTheirAxes) {
  PlotBench bench;
  bench.session.style.Formfont.formato = {"0.0", "#.### "};
  bench.draw();
  EXPECT_EQ(bench.session.xformat, "#.### ");
  EXPECT_EQ(bench.session.yformat, "0.0");
  EXPECT_EQ(wordings(numbersOf(bench.operations())),
            (std::vector<std::string>{"20. ", "40. ", "60. ", "80. ", "100. ", "10.0", "8.0", "6.0",
                                      "4.0", "2.0"}));
}

// A blank of the pattern counts as a character: n * 75 to the left of the grid line or the axis.
TEST(PlotNumbers, MoveLeftByTheirLength) {
  PlotBench bench;
  bench.session.style.Formfont.formato = {"0   ", "0"};
  bench.draw();
  const std::vector<TextOf> numbers = numbersOf(bench.operations());
  ASSERT_EQ(numbers.size(), 10U);
  EXPECT_EQ(numbers[0], (TextOf{{1623.6, 3120}, "20", kNumberFont, kText}));
  EXPECT_EQ(numbers[4], (TextOf{{5443, 3120}, "100", kNumberFont, kText}));
  EXPECT_EQ(numbers[5], (TextOf{{425, 520}, "10   ", kNumberFont, kText}));
  EXPECT_EQ(numbers[9], (TextOf{{500, 2536}, "2   ", kNumberFont, kText}));
}

TEST(PlotNumbers, DivideWhatTheAxesSpan) {
  PlotBench bench;
  bench.session.xmax(kPair) = 7;     // 1.4 each
  bench.session.ymin(kPair) = -0.5;  // 0.6 each
  bench.session.ymax(kPair) = 2.5;
  bench.draw();
  EXPECT_EQ(wordings(numbersOf(bench.operations())),
            (std::vector<std::string>{"1.40", "2.80", "4.20", "5.60", "7.00", "2.50 ", "1.90 ",
                                      "1.30 ", "0.70 ", "0.10 "}));
}

TEST(DistanceAxis, EndsAtTheLastLagUntilItIsSet) {
  PlotBench bench;
  bench.session.hmax(kPair) = 80;
  bench.draw();
  EXPECT_EQ(bench.session.xmax(kPair), 80);
  bench.session.hmax(kPair) = 90;
  bench.draw();
  EXPECT_EQ(bench.session.xmax(kPair), 80);
  EXPECT_EQ(bench.session.xmax({2, 1}), 0);
}

TEST(DistanceAxis, KeepsAnEndThatWasSet) {
  PlotBench bench;
  bench.session.xmax(kPair) = 55;
  bench.draw();
  EXPECT_EQ(bench.session.xmax(kPair), 55);
}

}  // namespace
}  // namespace zevfit
