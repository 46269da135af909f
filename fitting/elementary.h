#pragma once

#include <bit>
#include <cstdint>
#include <numbers>

namespace zevfit::fitting {

// Elementary functions of sums and products alone: those of a library may differ in the last bit
// from machine to machine. Inline and without branches, so that loops take several at once.

/// ln 2 in two parts, of which the first is exact when multiplied by an exponent.
inline constexpr double kLn2High = 0x1.62e42fefa38p-1, kLn2Low = 0x1.ef35793c7673p-45;

/// e^x within 2 units in the last place, x below 700; 0 for x below -700.
inline double exponentialOf(double x) {
  constexpr double kLeast = -700, kWhole = 0x1.8p52;
  const double clipped = x < kLeast ? kLeast : x;
  // The sum has the whole number nearest to x / ln 2 in its last bits.
  const double shifted = clipped * std::numbers::log2e + kWhole;
  const double whole = shifted - kWhole;
  const double r = (clipped - whole * kLn2High) - whole * kLn2Low;
  double p = 1.0 / 6227020800;
  p = p * r + 1.0 / 479001600;
  p = p * r + 1.0 / 39916800;
  p = p * r + 1.0 / 3628800;
  p = p * r + 1.0 / 362880;
  p = p * r + 1.0 / 40320;
  p = p * r + 1.0 / 5040;
  p = p * r + 1.0 / 720;
  p = p * r + 1.0 / 120;
  p = p * r + 1.0 / 24;
  p = p * r + 1.0 / 6;
  p = p * r + 0.5;
  p = p * r + 1;
  p = p * r + 1;
  const std::uint64_t exponent = std::bit_cast<std::uint64_t>(shifted) << 52U;
  const auto value = std::bit_cast<double>(std::bit_cast<std::uint64_t>(p) + exponent);
  return x < kLeast ? 0 : value;
}

/// The natural logarithm of a normal number above 0, within 2 units in the last place of the larger
/// of it and ln 2.
inline double logarithmOf(double x) {
  constexpr std::uint64_t kMantissa = 0x000fffffffffffff, kOne = 0x3ff0000000000000;
  const auto bits = std::bit_cast<std::uint64_t>(x);
  double exponent = static_cast<double>(static_cast<std::int64_t>(bits >> 52U) - 1023);
  double m = std::bit_cast<double>((bits & kMantissa) | kOne);
  if (m > std::numbers::sqrt2) {
    m /= 2;
    exponent += 1;
  }
  const double s = (m - 1) / (m + 1), square = s * s;
  // ln m = 2 artanh s, of which s is at most 0.1716.
  double sum = 0;
  for (int i = 21; i >= 3; i -= 2) sum = (sum + 1.0 / i) * square;
  return exponent * kLn2High + (2 * s + (2 * s * sum + exponent * kLn2Low));
}

}  // namespace zevfit::fitting
