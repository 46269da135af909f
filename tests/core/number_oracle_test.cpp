// The general text form beside the C library's, which rounds the exact value to 15 digits.
#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>

#include "session/numbers.h"

namespace zevfit {
namespace {

constexpr int kSamples = 30000;

std::string expected(double value) {
  std::array<char, 40> text{};
  std::snprintf(text.data(), text.size(), "%.15G", value);
  return text.data();
}

TEST(GeneralTextBesideTheLibrary, OfAnySize) {
  std::mt19937_64 bits(7);
  for (int i = 0; i < kSamples; ++i) {
    const auto value = std::bit_cast<double>(bits());
    if (!std::isnormal(value)) continue;
    ASSERT_EQ(generalText(value), expected(value));
  }
}

TEST(GeneralTextBesideTheLibrary, OfTheUsualSizes) {
  std::mt19937_64 random(8);
  std::uniform_real_distribution<double> exponents(-5, 16);
  for (int i = 0; i < kSamples; ++i) {
    const double value = std::pow(10, exponents(random));
    ASSERT_EQ(generalText(-value), expected(-value));
    ASSERT_EQ(generalText(std::floor(value)), expected(std::floor(value)));
    // Some whole digits more and one unit less, where many digits carry.
    const double whole = std::nextafter(1 + std::floor(value), i % 2 ? 0 : 1e300);
    ASSERT_EQ(generalText(whole), expected(whole));
  }
}

TEST(GeneralTextBesideTheLibrary, OfHalvesAtTheLastDigit) {
  // 13 digits and an odd number of eighths are 16 digits that end in 5, exactly; 14 digits and a
  // quarter, and 15 and a half, likewise.
  std::mt19937_64 random(9);
  for (int i = 0; i < kSamples; ++i) {
    std::uniform_int_distribution<std::int64_t> eighths(8'000'000'000'000, 79'999'999'999'999);
    const double value = static_cast<double>(eighths(random) | 1);
    ASSERT_EQ(generalText(value / 8), expected(value / 8));
    ASSERT_EQ(generalText(value * 10 / 4), expected(value * 10 / 4));
    ASSERT_EQ(generalText(value * 50 / 2 + 0.5), expected(value * 50 / 2 + 0.5));
  }
}

}  // namespace
}  // namespace zevfit
