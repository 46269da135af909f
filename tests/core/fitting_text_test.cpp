// Texts that have so much room: a character takes 20 for each point of its font.
#include "plot/overlay/fitting_text.h"

#include <gtest/gtest.h>

#include "tests/support/recording_surface.h"

namespace zevfit {
namespace {

using Texts = std::vector<std::string>;

const Font kFont{"Face", 5};
constexpr const char* kTwoDecimals = "#0.#0 ";

std::string elidedTo(std::size_t characters, std::string_view text) {
  RecordingSurface surface;
  return elided(surface, kFont, text, 100 * static_cast<double>(characters));
}

/// Up to so many characters fit.
Texts numbersOf(const std::vector<double>& values, std::string_view pattern = kTwoDecimals,
                std::size_t characters = 9) {
  return axisNumbers(values, pattern,
                     [&](const std::string& text) { return text.size() <= characters; });
}

TEST(FittingText, EndsWithPointsWhereItIsTooLong) {
  EXPECT_EQ(elidedTo(5, "azimu"), "azimu");
  EXPECT_EQ(elidedTo(5, "azimut"), "az...");
  EXPECT_EQ(elidedTo(3, "azimut"), "...");
  EXPECT_EQ(elidedTo(0, "azimut"), "...");
  EXPECT_EQ(elidedTo(0, ""), "");
  EXPECT_EQ(elidedTo(100, std::string(1000000, 'a')).size(), 100U);
  RecordingSurface surface;
  EXPECT_EQ(elided(surface, kFont, "azimuth", 0.1 + 0.7 + 699.2 - 1e-9), "azimuth")
      << "a rounded sum";
  EXPECT_EQ(elidedWithin(surface, kFont, "a (", "zinc", ")", 800), "a (zinc)");
  EXPECT_EQ(elidedWithin(surface, kFont, "a (", "zincs", ")", 800), "a (z...)");
}

TEST(AxisNumbers, AreOfThePattern) {
  EXPECT_EQ(numbersOf({0, 0.25, 0.5}), (Texts{"0", "0.25", "0.50"}));
  EXPECT_EQ(numbersOf({-2, 0, 2}), (Texts{"-2.00", "0", "2.00"}));
  // The worst of these is off by 0.48 of a step of 2.12: less than a quarter.
  EXPECT_EQ(numbersOf({2.12, 4.24, 6.36, 8.48}, "#0"), (Texts{"2", "4", "6", "8"}));
}

TEST(AxisNumbers, AreShorterWhereThePatternCantTellThem) {
  EXPECT_EQ(numbersOf({0, 2.12e-6, 4.24e-6}), (Texts{"0", "2.12E-06", "4.24E-06"}));
  // .01, .03, .04 would be off by up to 0.0046 of 0.01272.
  EXPECT_EQ(numbersOf({0.01272, 0.02544, 0.03816}), (Texts{"0.0127", "0.0254", "0.0382"}));
  // Digits are those of the step, whatever lies before them.
  EXPECT_EQ(numbersOf({1000.00175, 1000.0025, 1000.00325}, kTwoDecimals, 12),
            (Texts{"1000.00175", "1000.0025", "1000.00325"}));
  EXPECT_EQ(numbersOf({1e-5, 1e-5}), (Texts{"1E-05", "1E-05"})) << "one number alone";
  EXPECT_EQ(numbersOf({0, 0}), (Texts{"0", "0"}));
}

TEST(AxisNumbers, AreShorterWhereTheyDoNotFit) {
  EXPECT_EQ(numbersOf({123456.78, 246913.56}, kTwoDecimals, 9), (Texts{"123456.78", "246913.56"}));
  EXPECT_EQ(numbersOf({123456.78, 246913.56}, kTwoDecimals, 8), (Texts{"123000", "247000"}));
  EXPECT_EQ(numbersOf({2.12e11, 4.24e11}), (Texts{"2.12E+11", "4.24E+11"}));
  EXPECT_EQ(numbersOf({2.12e11, 4.24e11}, kTwoDecimals, 7), (Texts{"2.1E+11", "4.2E+11"}));
  EXPECT_EQ(numbersOf({2.12e11, 4.24e11}, kTwoDecimals, 6), (Texts{"2.12E+11", "4.24E+11"}))
      << "nothing fits";
}

TEST(AxisNumbers, StandEveryHowManyth) {
  RecordingSurface surface;
  const Texts texts{"0", "1234", "12", "1"};
  EXPECT_EQ(strideOf(surface, kFont, texts, 400), 1U);
  EXPECT_EQ(strideOf(surface, kFont, texts, 399), 2U);
  EXPECT_EQ(strideOf(surface, kFont, texts, 150), 3U);
  EXPECT_EQ(strideOf(surface, kFont, texts, 1), 4U);
  EXPECT_EQ(strideOf(surface, kFont, texts, -1), 4U);
}

}  // namespace
}  // namespace zevfit
