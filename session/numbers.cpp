#include "session/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <type_traits>

#include "session/decimal.h"
#include "session/fault.h"
#include "session/short_decimal.h"

namespace zevfit {
namespace {

constexpr std::size_t kZone = 14;

char* writeDigits(char* at, const Decimal& decimal, int from, int to) {
  const char* const digits = decimal.digits.data();
  return std::copy(digits + from, digits + to, at);
}

char* writeInteger(char* at, const Decimal& decimal) {
  if (decimal.point <= 0) return std::fill_n(at, 1, '0');
  at = writeDigits(at, decimal, 0, std::min(decimal.point, decimal.count));
  return std::fill_n(at, std::max(decimal.point - decimal.count, 0), '0');
}

char* writePlain(char* at, const Decimal& decimal) {
  at = writeInteger(at, decimal);
  if (decimal.point >= decimal.count) return at;
  *at++ = '.';
  at = std::fill_n(at, std::max(-decimal.point, 0), '0');
  return writeDigits(at, decimal, std::max(decimal.point, 0), decimal.count);
}

char* writeWithExponent(char* at, const Decimal& decimal) {
  *at++ = decimal.digit(0);
  if (decimal.count > 1) *at++ = '.';
  at = writeDigits(at, decimal, 1, decimal.count);
  const int exponent = decimal.point - 1;
  *at++ = 'E';
  *at++ = exponent < 0 ? '-' : '+';
  if (std::abs(exponent) < 10) *at++ = '0';
  return std::to_chars(at, at + 4, std::abs(exponent)).ptr;
}

// Long enough for a sign, 15 digits, a point, four zeros behind it and an exponent.
using NumberBuffer = std::array<char, 40>;

char* writeGeneral(char* at, const Decimal& decimal, int most) {
  const int exponent = decimal.point - 1;
  const bool plain = decimal.count == 0 || (exponent >= -4 && exponent < most);
  return plain ? writePlain(at, decimal) : writeWithExponent(at, decimal);
}

template <class T>
constexpr int kDigits = sizeof(T) == sizeof(float) ? kFloatDigits : kDoubleDigits;
template <class T>
constexpr T kFirstWithExponent = sizeof(T) == sizeof(float) ? T{1e7F} : static_cast<T>(1e15);

// The digits of the text of a fraction, from the first one that is not 0.
template <class T>
std::ptrdiff_t significantDigits(const char* at, const char* end, T size) {
  if (size >= 1) return end - at - 1;
  return end - std::find_if(at, end, [](char letter) { return letter > '0'; });
}

// Rounds the shortest text of a fraction to fewer digits, as Decimal does. Nothing where the last
// digits are a half, whose side the text doesn't tell, or carry over the point.
char* withoutDigits(char* end, std::ptrdiff_t excess) {
  char* const cut = end - excess;
  if (excess == 1 && *cut == '5') return nullptr;
  const bool up = *cut >= '5';
  const char dropped = up ? '9' : '0';
  end = cut;
  while (end[-1] == dropped) --end;
  if (end[-1] == '.') return up ? nullptr : end - 1;
  if (up) ++end[-1];
  return end;
}

using DigitPairs = std::array<std::array<char, 2>, 100>;

constexpr DigitPairs kDigitPairs = [] {
  DigitPairs pairs{};
  for (std::size_t i = 0; i < pairs.size(); ++i)
    pairs[i] = {static_cast<char>('0' + i / 10), static_cast<char>('0' + i % 10)};
  return pairs;
}();

// A number below 100,000,000, with zeros in front.
char* writeEight(char* at, std::uint64_t number) {
  const std::uint64_t left = number / 10'000, right = number % 10'000;
  for (const std::uint64_t pair : {left / 100, left % 100, right / 100, right % 100})
    at = std::copy(kDigitPairs[pair].begin(), kDigitPairs[pair].end(), at);
  return at;
}

// A number below 1e16 as digits behind the point, without the zeros behind.
char* writeDecimals(char* at, std::uint64_t number) {
  constexpr std::uint64_t kEight = 100'000'000;
  at = writeEight(at, number / kEight);
  if (number % kEight != 0) at = writeEight(at, number % kEight);
  while (at[-1] == '0') --at;
  return at;
}

// Decimals that make fifteen digits of a fraction from 1e-4 to 1e15, zeros behind the point
// besides.
std::size_t decimalsOf(double size) {
  constexpr std::array<double, 18> kEdges{1e-3, 1e-2, 1e-1, 1e0, 1e1,  1e2,  1e3,  1e4,  1e5,
                                          1e6,  1e7,  1e8,  1e9, 1e10, 1e11, 1e12, 1e13, 1e14};
  std::size_t decimals = kEdges.size();
  for (const double edge : kEdges) {
    if (size < edge) return decimals;
    --decimals;
  }
  return decimals;
}

// Such a fraction, `whole` what stands in front of its point. Its fifteen digits are a product that
// is off by at most a sixteenth; nothing where that might decide how they are rounded, nor where
// they carry over the point.
char* writeByProduct(char* at, char* last, double size, std::int64_t whole) {
  constexpr auto& kTens = ExactPowers<double>::kTens;
  constexpr std::size_t kDecimalsWritten = 16;
  constexpr std::int64_t kMostDigits = 1'000'000'000'000'000;
  const std::size_t decimals = decimalsOf(size);
  const double product = size * kTens[decimals];
  const auto down = static_cast<std::int64_t>(product);
  const double rest = product - static_cast<double>(down);
  if (rest > 0.4 && rest < 0.6) return nullptr;
  const std::int64_t digits = rest < 0.5 ? down : down + 1;
  const auto unit = static_cast<std::int64_t>(kTens[decimals]);
  const std::int64_t fraction = digits - whole * unit;
  if (fraction <= 0 || fraction >= unit || digits >= kMostDigits) return nullptr;
  at = std::to_chars(at, last, whole).ptr;
  *at++ = '.';
  const std::size_t significant = std::min(decimals, std::size_t{kDoubleDigits});
  at = std::fill_n(at, decimals - significant, '0');
  const auto shift = static_cast<std::uint64_t>(kTens[kDecimalsWritten - significant]);
  return writeDecimals(at, static_cast<std::uint64_t>(fraction) * shift);
}

// The short way for most numbers: the shortest text, where its form is the plain one. Nothing for
// all others.
template <class T>
char* writeUsual(NumberBuffer& buffer, char* at, T size) {
  char* const last = buffer.data() + buffer.size();
  if (!(size < kFirstWithExponent<T>)) return nullptr;
  const auto whole = static_cast<std::int64_t>(size);
  if (static_cast<T>(whole) == size) return std::to_chars(at, last, whole).ptr;
  if (size < static_cast<T>(1e-4)) return nullptr;
  if constexpr (std::is_same_v<T, double>)
    if (char* const end = writeByProduct(at, last, size, whole)) return end;
  char* const end = std::to_chars(at, last, size, std::chars_format::fixed).ptr;
  const std::ptrdiff_t excess = significantDigits(at, end, size) - kDigits<T>;
  return excess > 0 ? withoutDigits(end, excess) : end;
}

// The sign and the digits of a number; `positive` stands in place of a sign.
template <class T>
char* writeNumber(NumberBuffer& buffer, std::string_view positive, T value) {
  const auto sign = [&](bool negative) {
    const std::string_view text = negative ? "-" : positive;
    return std::copy(text.begin(), text.end(), buffer.data());
  };
  if (char* const end = writeUsual(buffer, sign(value < 0), std::abs(value))) return end;
  const Decimal decimal = decimalOf(value);
  return writeGeneral(sign(decimal.negative), decimal, kDigits<T>);
}

template <class T>
std::string generalTextOf(T value) {
  NumberBuffer buffer;
  return {buffer.data(), writeNumber(buffer, "", value)};
}

template <class T>
void appendNumber(std::string& out, T value) {
  NumberBuffer buffer;
  char* at = writeNumber(buffer, " ", value);
  *at++ = ' ';
  out.append(buffer.data(), at);
}

template <class T>
std::string appended(const T& value) {
  std::string text;
  appendFileNumber(text, value);
  return text;
}

}  // namespace

std::string generalText(double value) { return generalTextOf(value); }
std::string generalText(float value) { return generalTextOf(value); }

void appendFileNumber(std::string& out, double value) { appendNumber(out, value); }
void appendFileNumber(std::string& out, float value) { appendNumber(out, value); }
void appendFileNumber(std::string& out, const Cell& cell) {
  if (cell.isText()) {
    out += cell.toText();
  } else {
    appendNumber(out, cell.number());
  }
}

std::string fileNumber(double value) { return appended(value); }
std::string fileNumber(float value) { return appended(value); }
std::string fileNumber(const Cell& cell) { return appended(cell); }

std::string signedText(std::int64_t value) {
  std::string digits = std::to_string(value);
  return value < 0 ? digits : " " + digits;
}

void nextPrintZone(std::string& out, std::size_t lineStart) {
  const std::size_t length = out.size() - std::min(lineStart, out.size());
  const bool parted = length > 0 && out.back() == ' ';
  const std::size_t least = parted ? length : length + 1;
  out.append((least + kZone - 1) / kZone * kZone - length, ' ');
}

std::string_view trimmedLeft(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return text;
}

std::string_view trimmed(std::string_view text) {
  return trimmedLeft(text.substr(0, text.find_last_not_of(' ') + 1));
}

std::string lowered(std::string_view text) {
  std::string lower(text);
  for (char& letter : lower) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return lower;
}

std::int16_t toInt16(double value) {
  const double nearest = std::nearbyint(value);
  if (!(nearest >= INT16_MIN && nearest <= INT16_MAX)) throw Fault("Overflow");
  return static_cast<std::int16_t>(nearest);
}

float toSingle(double value) {
  constexpr double most = std::numeric_limits<float>::max();
  if (!(value >= -most && value <= most)) throw Fault("Overflow");
  return static_cast<float>(value);
}

std::int64_t toCount(double value) {
  constexpr double kLargest = 9007199254740992.0;
  const double nearest = std::nearbyint(value);
  if (!(std::abs(nearest) <= kLargest)) throw Fault("Overflow");
  return static_cast<std::int64_t>(nearest);
}

}  // namespace zevfit
