#include <gtest/gtest.h>
#include <cmath>
#include <limits>
#include <string>

#include "session/fault.h"
#include "session/number_reading.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

constexpr double kSmallest = std::numeric_limits<double>::denorm_min();

struct LeadingRow {
  const char* text;
  double value;
};

const LeadingRow kLeadingRows[] = {
    {"12abc", 12},
    {"abc", 0},
    {" 7", 7},
    {"   \t 7", 7},
    {"\t7", 7},
    {"", 0},
    {"   ", 0},
    {"7 8", 7},
    {"0.5", 0.5},
    {".5", 0.5},
    {"5.", 5},
    {"5..2", 5},
    {"1.2.3", 1.2},
    {"1,5", 1},
    {"-2.5", -2.5},
    {"+2.5", 2.5},
    {"- 2.5", 0},
    {"+-2", 0},
    {"--2", 0},
    {".", 0},
    {"-", 0},
    {"+", 0},
    {"-.", 0},
    {"-.5x", -0.5},
    {".E5", 0},
    {"E5", 0},
    {"1E5", 1e5},
    {"1e5", 1e5},
    {"1E+5", 1e5},
    {"1E-05", 1e-5},
    {"1.5E2x", 150},
    // An exponent without digits is no part of the number.
    {"3E", 3},
    {"3E+", 3},
    {"3e-x", 3},
    {"3Ex", 3},
    {"1E5.5", 1e5},
    // Words and other bases that a library might take for numbers.
    {"inf", 0},
    {"-inf", 0},
    {"infinity", 0},
    {"nan", 0},
    {"nan(1)", 0},
    {"0x10", 0},
    {"&H10", 0},
    {"1E-400", 0},
    {"-1E-400", 0},
    {"1E-99999999999999999999", 0},
    {"0E99999999999999999999", 0},
    {"0.0000E400", 0},
    {"4.9E-324", kSmallest},
    // 1E308 written with its exponent made up by digits in front of the point.
    {"100000E303", 1e308},
    {"0.00001E313", 1e308},
};

TEST(LeadingNumber, TakesTheLongestNumberInFront) {
  for (const LeadingRow& row : kLeadingRows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(leadingNumber(row.text), row.value);
  }
}

TEST(LeadingNumber, FaultsOnOverflow) {
  for (const char* text : {"1E400", " -1E400", "1e400x10", "1E99999999999999999999", "1.8E308",
                           "0.001E312", "99999999999999999999E290"}) {
    SCOPED_TRACE(text);
    EXPECT_THROW(leadingNumber(text), Fault);
  }
}

TEST(LeadingNumber, TakesThousandsOfDigits) {
  EXPECT_EQ(leadingNumber(std::string(5000, '0') + "12"), 12);
  EXPECT_EQ(leadingNumber("0." + std::string(5000, '0') + "1"), 0);
  EXPECT_EQ(leadingNumber("0." + std::string(399, '0') + "1E400"), 1);
  EXPECT_EQ(leadingNumber("1" + std::string(400, '0') + "E-400"), 1);
  EXPECT_THROW(leadingNumber("1" + std::string(5000, '0')), Fault);
}

struct WholeRow {
  const char* text;
  double value;
};

const WholeRow kWholeRows[] = {
    {"7", 7},
    {"-7", -7},
    {"+7", 7},
    {"0", 0},
    {"007", 7},
    {"0.5", 0.5},
    {".5", 0.5},
    {"-.5", -0.5},
    {"+.5", 0.5},
    {"5.", 5},
    {"1E-05", 1e-5},
    {"1e-05", 1e-5},
    {"1E+15", 1e15},
    {"1E15", 1e15},
    {"+1E+2", 100},
    {"-1e+2", -100},
    {"1E-400", 0},
    {"-1E-400", 0},
    {"+1E-400", 0},
    {"0E400", 0},
    {"0.E-400", 0},
    {"0E99999999999999999999", 0},
    {"1E-99999999999999999999", 0},
    {"94.2307076789621", 94.2307076789621},
    {"1.79769313486231E+308", 1.79769313486231e308},
};

TEST(WholeNumber, ReadsEveryFormOfANumber) {
  for (const WholeRow& row : kWholeRows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(wholeNumber(row.text), row.value);
  }
}

const char* const kNoNumbers[] = {"",      " ",   "abc",      "12abc", " 7",   "7 ",     "+-7",
                                  "--7",   "-+7", "++7",      "1E",    "1E+",  "1e-",    "+1E",
                                  ".",     "-.",  "+.",       "-",     "+",    "E5",     ".E5",
                                  "1.2.3", "1,5", "inf",      "-inf",  "+inf", "nan",    "-nan",
                                  "nan()", "INF", "infinity", "0x10",  "1d5",  "1E400x", "1_0"};

TEST(WholeNumber, RefusesWhatIsNotANumberToItsEnd) {
  for (const char* text : kNoNumbers) {
    SCOPED_TRACE(text);
    EXPECT_EQ(wholeNumber(text), std::nullopt);
    EXPECT_EQ(wholeFloat(text), std::nullopt);
  }
}

TEST(WholeNumber, HasNothingForAnOverflow) {
  for (const char* text : {"1E400", "-1E400", "+1E400", "1.8E308", "1E99999999999999999999"}) {
    SCOPED_TRACE(text);
    EXPECT_EQ(wholeNumber(text), std::nullopt);
  }
}

TEST(WholeNumber, StopsAtTheEndOfItsText) {
  const std::string_view line = "12345";
  EXPECT_EQ(wholeNumber(line.substr(0, 2)), 12);
  EXPECT_EQ(leadingNumber(line.substr(1, 2)), 23);
}

TEST(WholeFloat, ReadsInSinglePrecision) {
  EXPECT_EQ(wholeFloat("0.1"), 0.1F);
  EXPECT_EQ(wholeFloat("+253"), 253.0F);
  EXPECT_EQ(wholeFloat("-1E-05"), -1e-5F);
  // 2^24 + 1 lies midway between two floats and goes to the even one. With the last digit it is
  // above the middle, which a detour by a double (15 to 17 digits) would not see.
  EXPECT_EQ(wholeFloat("16777217"), 16777216.0F);
  EXPECT_EQ(wholeFloat("16777217.0000000001"), 16777218.0F);
}

TEST(WholeFloat, HasItsOwnRange) {
  EXPECT_EQ(wholeFloat("3.402823E+38"), 3.402823e38F);
  EXPECT_EQ(wholeFloat("3.5E+38"), std::nullopt);
  EXPECT_EQ(wholeFloat("-1E39"), std::nullopt);
  EXPECT_EQ(wholeFloat("1E-60"), 0.0F);
  EXPECT_EQ(wholeFloat("+1E-60"), 0.0F);
}

TEST(ToInt16, RoundsHalvesToTheEvenNumber) {
  const std::pair<double, int> rows[] = {
      {0.5, 0},         {1.5, 2},           {2.5, 2},         {-0.5, 0},
      {-1.5, -2},       {0.51, 1},          {1, 1},           {32767.4, 32767},
      {32766.5, 32766}, {-32768.5, -32768}, {-32768, -32768}, {1e-300, 0}};
  for (const auto& [value, nearest] : rows) {
    SCOPED_TRACE(value);
    EXPECT_EQ(toInt16(value), nearest);
  }
}

TEST(ToInt16, FaultsOutsideSixteenBits) {
  for (const double value :
       {32767.5, 32768.0, -32768.6, -32769.0, 1e300, -1e300,
        std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    SCOPED_TRACE(value);
    EXPECT_THROW(toInt16(value), Fault);
  }
}

}  // namespace
}  // namespace zevfit
