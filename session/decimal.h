#pragma once

#include <array>
#include <cstdint>

namespace zevfit {

/// The significant decimal digits that every written number of the program has.
inline constexpr int kDoubleDigits = 15;
inline constexpr int kFloatDigits = 7;

/// The decimal digits of a number: 0.d1d2d3... times ten to the power `point`, without a zero in
/// front or behind. Zero has no digits, no sign and its point at 0.
struct Decimal {
  std::array<char, 20> digits{};
  int count = 0;
  int point = 0;  ///< digits in front of the decimal point; negative: zeros behind it
  bool negative = false;

  /// The digit in the given place counted from the first one, '0' outside.
  char digit(std::int64_t place) const {
    return place < 0 || place >= count ? '0' : digits[static_cast<std::size_t>(place)];
  }

  /// Rounds to a number of decimals, halves away from zero.
  void roundTo(std::int64_t decimals);
};

/// The shortest digits that read back to the number, or its nearest ones where those are more than
/// 15 (for a float 7). Throws Fault for a number that is not finite.
Decimal decimalOf(double value);
Decimal decimalOf(float value);

}  // namespace zevfit
