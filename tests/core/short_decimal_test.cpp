// The quick ways from texts to numbers and back, beside the C library's.
#include "session/short_decimal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <string_view>

#include "files/tokens.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

constexpr int kSamples = 30000;

/// What is read of a text, with a stop sign where not all of it was.
template <class Number>
std::string readOf(std::string_view text) {
  Number value = 0;
  const char* const last = text.data() + text.size();
  const char* const behind = shortDecimal(text.data(), last, value);
  if (!behind) return "nothing";
  return generalText(value) + "|" + std::string(behind, last);
}

TEST(ShortDecimal, EndsWhereTheDecimalDoes) {
  struct Case {
    std::string_view text, value;
  };
  const Case cases[] = {
      {"12", "12|"},
      {"-12.5 ", "-12.5| "},
      {"12345678", "12345678|"},
      {"123456789,1", "123456789|,1"},
      {"0.25x1234567", "0.25|x1234567"},
      {"1234567.25:1234567", "1234567.25|:1234567"},
      {"1234/67.25", "1234|/67.25"},
      {".5,", "0.5|,"},
      {"5.", "5|"},
      {"1.5E3", "1.5|E3"},
      {"0.000000000000000001", "1E-18|"},
      {"9007199254740992", "9.00719925474099E+15|"},
      {"9007199254740993", "nothing"},  // between two numbers
      {"00000000000000000001", "nothing"},
      {"1234567890123456789012", "nothing"},
      {"0.00000000000000000000001", "nothing"},
      {"1\xBA/345678", "1|\xBA/345678"},
      {"", "nothing"},
      {"-", "nothing"},
      {".", "nothing"},
      {"-.", "nothing"},
      {"+1", "nothing"},
      {"E5", "nothing"},
  };
  for (const Case& c : cases) EXPECT_EQ(readOf<double>(c.text), c.value) << c.text;
  EXPECT_EQ(readOf<float>("16777216"), "1.677722E+07|");
  EXPECT_EQ(readOf<float>("16777217"), "nothing");
  EXPECT_EQ(readOf<float>("0.25"), "0.25|");
}

TEST(ShortDecimal, MinusZeroKeepsItsSign) {
  double value = 1;
  const std::string_view text = "-0.0";
  ASSERT_NE(shortDecimal(text.data(), text.data() + text.size(), value), nullptr);
  EXPECT_TRUE(value == 0 && std::signbit(value));
}

/// With all bits, where it is read at all.
template <class Number>
void expectAsRead(const std::string& text, Number expected) {
  Number value = 0;
  if (!shortDecimal(text.data(), text.data() + text.size(), value)) return;
  EXPECT_EQ(value, expected) << text;
}

TEST(ShortDecimal, IsTheNumberThatTheLibraryReads) {
  std::mt19937_64 random(11);
  for (int i = 0; i < kSamples; ++i) {
    const std::string digits = std::to_string(random() >> random() % 60);
    std::string text = digits;
    text.insert(random() % (text.size() + 1), ".");
    expectAsRead<double>(text, std::strtod(text.c_str(), nullptr));
    expectAsRead<float>(text, std::strtof(text.c_str(), nullptr));
  }
}

std::string fifteenDigits(double value) {
  char text[40];
  std::snprintf(text, sizeof text, "%.15G", value);
  return text;
}

TEST(FifteenDigits, AreTheLibrarysWhereTheyCarryOrLieBetweenTwo) {
  std::mt19937_64 random(12);
  for (int i = 0; i < kSamples; ++i) {
    const double ten = std::pow(10, static_cast<int>(random() % 20) - 5);
    const double digits = static_cast<double>(random() % 1'000'000'000'000'000);
    const double scale = std::pow(10, static_cast<int>(random() % 16));
    for (const double value : {std::nextafter(ten, 0), std::nextafter(ten, 1e300),
                               ten - ten * 4e-16, digits / scale, (digits + 0.5) / scale,
                               (1e15 - static_cast<double>(random() % 4)) / scale, digits / 1e18})
      ASSERT_EQ(generalText(value), fifteenDigits(value));
  }
}

}  // namespace
}  // namespace zevfit
