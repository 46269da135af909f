#include "session/decimal.h"

#include <algorithm>
#include <charconv>

#include "session/fault.h"

namespace zevfit {
namespace {

// Long enough for a sign, 17 digits, a point and an exponent.
using Scientific = std::array<char, 40>;

void dropTrailingZeros(Decimal& decimal) {
  while (decimal.count > 0 && decimal.digit(decimal.count - 1) == '0') --decimal.count;
  if (decimal.count > 0) return;
  decimal.point = 0;
  decimal.negative = false;
}

// Takes a text such as "-1.25e-07" apart.
Decimal parsed(const char* first, const char* last) {
  Decimal decimal;
  decimal.negative = *first == '-';
  if (decimal.negative) ++first;
  const char* const exponent = std::find(first, last, 'e');
  char* const digits = decimal.digits.data();
  *digits = *first;
  const char* const decimals = std::min(first + 2, exponent);
  decimal.count = static_cast<int>(std::copy(decimals, exponent, digits + 1) - digits);
  const bool positive = exponent[1] == '+';
  std::from_chars(exponent + (positive ? 2 : 1), last, decimal.point);
  ++decimal.point;
  dropTrailingZeros(decimal);
  return decimal;
}

// Adds one to the last digit kept; a carry out of the first digit moves the point.
void roundUp(Decimal& decimal) {
  while (decimal.count > 0 && decimal.digit(decimal.count - 1) == '9') --decimal.count;
  if (decimal.count > 0) {
    ++decimal.digits[static_cast<std::size_t>(decimal.count - 1)];
    return;
  }
  decimal.digits[0] = '1';
  decimal.count = 1;
  ++decimal.point;
}

// Rounding the shortest digits is rounding the value itself: a half between the two would be as
// short and nearer. Only where they end in that half do they not tell on which side the value lies.
template <class T>
Decimal digitsOf(T value, int most) {
  finite(static_cast<double>(value));
  Scientific text;
  char* const end = text.data() + text.size();
  const auto format = std::chars_format::scientific;
  Decimal shortest = parsed(text.data(), std::to_chars(text.data(), end, value, format).ptr);
  if (shortest.count == most + 1 && shortest.digit(most) == '5')
    return parsed(text.data(), std::to_chars(text.data(), end, value, format, most - 1).ptr);
  shortest.roundTo(std::int64_t{most} - shortest.point);
  return shortest;
}

}  // namespace

void Decimal::roundTo(std::int64_t decimals) {
  const std::int64_t kept = point + decimals;
  if (kept >= count) return;
  const bool up = kept >= 0 && digit(kept) >= '5';
  count = kept < 0 ? 0 : static_cast<int>(kept);
  if (up) {
    roundUp(*this);
  } else {
    dropTrailingZeros(*this);
  }
}

Decimal decimalOf(double value) { return digitsOf(value, kDoubleDigits); }
Decimal decimalOf(float value) { return digitsOf(value, kFloatDigits); }

}  // namespace zevfit
