#include <gtest/gtest.h>
#include <limits>
#include <string>

#include "session/fault.h"
#include "session/number_pattern.h"

namespace zevfit {
namespace {

struct PatternRow {
  double value;
  const char* pattern;
  const char* text;
};

std::string nameOf(const PatternRow& row) {
  return std::to_string(row.value) + " with \"" + row.pattern + "\"";
}

template <std::size_t N>
void expectRows(const PatternRow (&rows)[N]) {
  for (const PatternRow& row : rows) {
    EXPECT_EQ(formatNumber(row.value, row.pattern), row.text) << nameOf(row);
  }
}

TEST(NumberPattern, ShowsTheExamplesOfTheHelpWindow) {
  const PatternRow rows[] = {{123.7804, "###.####", "123.7804"},
                             {123.7804, "###.#####", "123.7804"},
                             {123.7804, "###.####0", "123.78040"},
                             {123.7804, "###.# ###0", "123.7 8040"}};
  expectRows(rows);
}

TEST(NumberPattern, ShowsTheDefaultsOfTheAxes) {
  const PatternRow rows[] = {{0.5, "###.#0", ".50"},         {0.5, "###0.#0 ", "0.50 "},
                             {0, "###.#0", ".00"},           {0, "###0.#0 ", "0.00 "},
                             {0.5, "#0.#0 ", "0.50 "},       {0, "#0.#0 ", "0.00 "},
                             {0.5, "####.#0", ".50"},        {1614.178, "####.#0", "1614.18"},
                             {123.456, "#0.#0 ", "123.46 "}, {-1.5, "#0.#0 ", "-1.50 "}};
  expectRows(rows);
}

TEST(NumberPattern, ShowsTheFixedPatternsOfTheProgram) {
  const PatternRow rows[] = {{2.5, "####.####", "2.5"},
                             {1, "####.####", "1."},
                             {0.25, "####.####", ".25"},
                             {0, "####.####", "."},
                             {0.517227, "####.###", ".517"},
                             {12345.5, "####.###", "12345.5"},
                             {3.14159, "####.##", "3.14"},
                             {0, "#####.###", "."},
                             {0.1, "#####.###", ".1"},
                             {1.5, "#.### ", "1.5 "},
                             {7, "00", "07"},
                             {12, "00", "12"},
                             {123, "00", "123"},
                             {0, "00", "00"}};
  expectRows(rows);
}

TEST(NumberPattern, DigitsFillTheIntegerPlacesFromTheRight) {
  const PatternRow rows[] = {{5, "0", "5"},
                             {0, "0", "0"},
                             {0, "#", ""},
                             {5, "#.###", "5."},
                             {5, "000", "005"},
                             {5, "#00", "05"},
                             {5, "0##", "05"},
                             {50, "0##", "050"},
                             {123, "#", "123"},
                             {123, "0", "123"},
                             {1234, "#,###", "1,234"},
                             {12345, "# ##0", "12 345"},
                             {5, "# ##0", " 5"},
                             {5, "0 000", "0 005"},
                             // Digits beyond the leftmost place stand where that place is.
                             {12345, " # # ", " 1234 5 "}};
  expectRows(rows);
}

TEST(NumberPattern, DecimalsFillTheFractionPlacesFromTheLeft) {
  const PatternRow rows[] = {
      {0.25, "#.####", ".25"},        {0.25, "#.0###", ".25"},   {0.25, "#.###0", ".2500"},
      {0.25, "#.#0##", ".25"},        {0.2, "#.#0##", ".20"},    {2, "#.0", "2.0"},
      {2, "#.#0#", "2.00"},           {0.205, "#.###", ".205"},  {0.05, "#.##", ".05"},
      {0.1234, "0.0 0 0", "0.1 2 3"}, {0.1, "0.# # #", "0.1  "}, {0.1, "0.# #0", "0.1 00"}};
  expectRows(rows);
}

TEST(NumberPattern, RoundsHalvesOfTheDecimalTextAwayFromZero) {
  const PatternRow rows[] = {// None of these is a half in binary: the decimal text decides.
                             {2.675, "#.##", "2.68"},
                             {1.005, "#.##", "1.01"},
                             {-2.675, "#.##", "-2.68"},
                             {0.5, "0", "1"},
                             {1.5, "0", "2"},
                             {2.5, "0", "3"},
                             {-0.5, "0", "-1"},
                             {0.4999, "0", "0"},
                             {0.125, "0.##", "0.13"},
                             {0.0625, "0.###", "0.063"},
                             {0.05, "0.#", "0.1"},
                             {0.04, "0.#", "0."},
                             {0.005, "#.##", ".01"},
                             {0.0049, "#.##", "."},
                             {0.0005, "#.##", "."},
                             {12.7, "#", "13"},
                             {12.4, "00", "12"},
                             // Fifteen digits of 0.1 + 0.7 are 0.8, of 1.15 they are 1.15.
                             {0.1 + 0.7, "0.###############", "0.8"},
                             {1.15, "0.#", "1.2"}};
  expectRows(rows);
}

TEST(NumberPattern, CarriesIntoNewDigits) {
  const PatternRow rows[] = {{999.96, "#.#", "1000."}, {9.5, "#", "10"},
                             {99.995, "#.##", "100."}, {99.995, "#.#0", "100.00"},
                             {0.999, "#.##", "1."},    {0.96, "#", "1"},
                             {9.999, "00", "10"},      {1.996, "#.##", "2."}};
  expectRows(rows);
}

TEST(NumberPattern, WritesTheSignFirst) {
  const PatternRow rows[] = {{-5, "000", "-005"},       {-0.5, "#.#", "-.5"},
                             {-5, " 0", "- 5"},         {-1234, "# ###", "-1 234"},
                             {-0.001, "#.##", "."},     {-0.001, "0.00", "0.00"},
                             {-0.005, "0.00", "-0.01"}, {-0.0, "0.0", "0.0"}};
  expectRows(rows);
}

TEST(NumberPattern, KeepsThePointWithNothingBehind) {
  const PatternRow rows[] = {{5, "#.", "5."}, {5.7, "0.", "6."}, {0, ".", "."}, {0, "#.#", "."}};
  expectRows(rows);
}

TEST(NumberPattern, WritesIntegerDigitsWithoutAPlaceForThem) {
  const PatternRow rows[] = {{12.3, ".##", "12.3"}, {0.3, ".##", ".3"},     {12.7, "", "13"},
                             {0, "", ""},           {12.3, " .#", " 12.3"}, {7, " ", " 7"}};
  expectRows(rows);
}

TEST(NumberPattern, KeepsBlanksAndOtherCharactersWhereTheyStand) {
  const PatternRow rows[] = {
      {5, " 0 ", " 5 "},        {5.25, "0 .0 0 ", "5 .2 5 "},   {5, "0 m", "5 m"},
      {1.25, "0.0.0", "1.2.5"}, {1.25, "a0.b0c0d", "a1.b2c5d"}, {0.1, "0.# ", "0.1 "},
      {0, "# .# ", " . "}};
  expectRows(rows);
}

TEST(NumberPattern, TakesVeryLargeAndVerySmallNumbers) {
  EXPECT_EQ(formatNumber(1e300, "#"), "1" + std::string(300, '0'));
  EXPECT_EQ(formatNumber(-1.5e300, "#.0"), "-15" + std::string(299, '0') + ".0");
  EXPECT_EQ(formatNumber(std::numeric_limits<double>::max(), "#.#"),
            "179769313486232" + std::string(294, '0') + ".");
  EXPECT_EQ(formatNumber(1e-300, "0.##"), "0.");
  EXPECT_EQ(formatNumber(std::numeric_limits<double>::denorm_min(), "0.00"), "0.00");
  EXPECT_EQ(formatNumber(1e-300, "0." + std::string(300, '#')), "0." + std::string(299, '0') + "1");
  EXPECT_EQ(formatNumber(1, "0." + std::string(1000, '0')), "1." + std::string(1000, '0'));
  EXPECT_EQ(formatNumber(1, std::string(1000, '0')), std::string(999, '0') + "1");
}

TEST(NumberPattern, HasFifteenSignificantDigits) {
  // 1 / 3 and 2 / 3 are 0.333333333333333 and 0.666666666666667; zeros follow.
  EXPECT_EQ(formatNumber(1.0 / 3, "0.00000000000000000"), "0.33333333333333300");
  EXPECT_EQ(formatNumber(2.0 / 3, "0.#################"), "0.666666666666667");
  EXPECT_EQ(formatNumber(1234567890123456.0, "0"), "1234567890123460");
}

TEST(NumberPattern, FaultsWithoutANumber) {
  EXPECT_THROW(formatNumber(std::numeric_limits<double>::infinity(), "0"), Fault);
  EXPECT_THROW(formatNumber(std::numeric_limits<double>::quiet_NaN(), "0"), Fault);
}

}  // namespace
}  // namespace zevfit
