#include "session/number_reading.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include "session/fault.h"

namespace zevfit {
namespace {

bool isDigit(char letter) { return letter >= '0' && letter <= '9'; }
bool isSign(char letter) { return letter == '+' || letter == '-'; }

const char* skipDigits(const char* at, const char* last) {
  while (at != last && isDigit(*at)) ++at;
  return at;
}

// The end of an exponent that starts here; where there is none, here.
const char* skipExponent(const char* at, const char* last) {
  if (at == last || (*at != 'E' && *at != 'e')) return at;
  const char* digits = at + 1;
  if (digits != last && isSign(*digits)) ++digits;
  const char* const end = skipDigits(digits, last);
  return end == digits ? at : end;
}

// The longest number, without a sign, that the text begins with; empty where there is none.
std::string_view unsignedPrefix(std::string_view text) {
  const char* const first = text.data();
  const char* const last = first + text.size();
  const char* at = skipDigits(first, last);
  std::ptrdiff_t digits = at - first;
  if (at != last && *at == '.') {
    const char* const behind = skipDigits(at + 1, last);
    digits += behind - at - 1;
    at = behind;
  }
  if (digits == 0) return {};
  return text.substr(0, static_cast<std::size_t>(skipExponent(at, last) - first));
}

// The exponent of a number text as written, cut where no text has the digits to outweigh it.
std::int64_t writtenExponent(std::string_view exponent) {
  constexpr std::int64_t kBeyond = std::numeric_limits<std::int64_t>::max() / 2;
  if (exponent.empty()) return 0;
  const bool negative = exponent.front() == '-';
  if (isSign(exponent.front())) exponent.remove_prefix(1);
  std::int64_t value = 0;
  const auto read = std::from_chars(exponent.data(), exponent.data() + exponent.size(), value);
  if (read.ec != std::errc() || value > kBeyond) value = kBeyond;
  return negative ? -value : value;
}

// Whether a number text that no number can hold is too large for one; otherwise it is too small.
bool isLarge(std::string_view number) {
  const std::size_t exponentAt = std::min(number.find_first_of("Ee"), number.size());
  const std::string_view mantissa = number.substr(0, exponentAt);
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  const auto leading = static_cast<std::int64_t>(mantissa.find_first_not_of("0."));
  const std::int64_t magnitude = static_cast<std::int64_t>(point) - leading;
  const std::string_view exponent =
      exponentAt < number.size() ? number.substr(exponentAt + 1) : std::string_view();
  return magnitude + writtenExponent(exponent) > 0;
}

// The value of a text that is a number without a sign; nothing on overflow, 0 on underflow.
template <class T>
std::optional<T> unsignedValue(std::string_view number) {
  T value = 0;
  const auto read = std::from_chars(number.data(), number.data() + number.size(), value);
  if (read.ec != std::errc::result_out_of_range && std::isfinite(value)) return value;
  if (isLarge(number)) return std::nullopt;
  return T{0};
}

// The forms that the plain conversion does not take, or takes for another thing: a plus sign, a
// number out of range.
template <class T>
std::optional<T> rareForm(std::string_view text) {
  if (text.empty()) return std::nullopt;
  const bool negative = text.front() == '-';
  if (isSign(text.front())) text.remove_prefix(1);
  const std::string_view number = unsignedPrefix(text);
  if (number.empty() || number.size() != text.size()) return std::nullopt;
  const std::optional<T> value = unsignedValue<T>(number);
  return value && negative ? -*value : value;
}

template <class T>
std::optional<T> whole(std::string_view text) {
  T value = 0;
  const char* const last = text.data() + text.size();
  const auto read = std::from_chars(text.data(), last, value);
  if (read.ec == std::errc() && read.ptr == last && std::isfinite(value)) return value;
  return rareForm<T>(text);
}

}  // namespace

double leadingNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  if (text.empty()) return 0;
  const bool negative = text.front() == '-';
  if (isSign(text.front())) text.remove_prefix(1);
  const std::string_view number = unsignedPrefix(text);
  if (number.empty()) return 0;
  const std::optional<double> value = unsignedValue<double>(number);
  if (!value) throw Fault("Overflow");
  return negative ? -*value : *value;
}

std::optional<double> wholeNumber(std::string_view text) { return whole<double>(text); }
std::optional<float> wholeFloat(std::string_view text) { return whole<float>(text); }

}  // namespace zevfit
