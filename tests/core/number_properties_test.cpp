#include <gtest/gtest.h>
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "session/number_pattern.h"
#include "session/number_reading.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

constexpr int kSamples = 20000;

// Above it the fifteenth digit can round up to what no double holds.
constexpr double kLargest = 1.79769313486231e308;

// Numbers of every size: all patterns of bits that are a number.
class AnyNumber {
 public:
  double operator()() {
    for (;;) {
      const auto value = std::bit_cast<double>(bits_());
      if (std::isfinite(value) && std::fabs(value) < kLargest) return value;
    }
  }
  float asFloat() {
    for (;;) {
      const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(bits_()));
      if (std::isfinite(value)) return value;
    }
  }

 private:
  std::mt19937_64 bits_{20240229};
};

TEST(NumberProperties, GeneralTextReadsBackToFifteenDigits) {
  AnyNumber number;
  for (int i = 0; i < kSamples; ++i) {
    const double value = number();
    const std::string text = generalText(value);
    const auto read = wholeNumber(text);
    ASSERT_TRUE(read) << text;
    // Half a unit of the 15th digit is at most 5E-15 of the value, reading adds up to 1.2E-16.
    const double tolerance = std::max(std::fabs(value) * 5.12e-15, 5e-324);
    ASSERT_LE(std::fabs(*read - value), tolerance) << text;
    ASSERT_EQ(generalText(*read), text);
    ASSERT_EQ(leadingNumber(text + " m"), *read);
  }
}

TEST(NumberProperties, SinglePrecisionTextReadsBackToSevenDigits) {
  AnyNumber number;
  for (int i = 0; i < kSamples; ++i) {
    const float value = number.asFloat();
    const std::string text = generalText(value);
    const auto read = wholeFloat(text);
    ASSERT_TRUE(read) << text;
    // Half a unit of the 7th digit is at most 5E-7 of the value, reading adds up to 6E-8.
    const double tolerance = std::max(std::fabs(static_cast<double>(value)) * 5.6e-7, 1.5e-45);
    ASSERT_LE(std::fabs(static_cast<double>(*read) - static_cast<double>(value)), tolerance)
        << text;
  }
}

TEST(NumberProperties, NumbersOfFifteenDigitsKeepEachDigit) {
  std::mt19937_64 random(5);
  std::uniform_int_distribution<std::int64_t> digits(-999999999999999, 999999999999999);
  std::uniform_int_distribution<int> exponents(-250, 250);
  for (int i = 0; i < kSamples; ++i) {
    const std::string written =
        std::to_string(digits(random)) + "E" + std::to_string(exponents(random));
    const double value = wholeNumber(written).value();
    ASSERT_EQ(wholeNumber(generalText(value)), value) << written;
  }
}

TEST(NumberProperties, PatternReadsBack) {
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> uniform(-1000, 1000);
  // Half a unit of the last decimal; below 1000 the 15th digit is the 12th decimal or a later one,
  // and reading adds up to 6E-14.
  const std::pair<const char*, double> patterns[] = {{"0.###############", 5.6e-13},
                                                     {"#.###############", 5.6e-13},
                                                     {"0.000000", 5.0001e-7},
                                                     {"#####.###", 5.0001e-4},
                                                     {"#.", 0.5001},
                                                     {"", 0.5001}};
  for (int i = 0; i < kSamples; ++i) {
    const double value = uniform(random);
    for (const auto& [pattern, tolerance] : patterns) {
      const std::string text = formatNumber(value, pattern);
      ASSERT_NEAR(leadingNumber(text), value, tolerance) << text << " with " << pattern;
    }
  }
}

TEST(NumberProperties, PatternOfWhatAPatternShowsIsTheSame) {
  AnyNumber number;
  for (int i = 0; i < kSamples / 4; ++i) {
    const std::string text = formatNumber(number(), "0.###");
    ASSERT_EQ(formatNumber(leadingNumber(text), "0.###"), text);
  }
}

}  // namespace
}  // namespace zevfit
