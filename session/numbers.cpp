#include "session/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "session/decimal.h"
#include "session/fault.h"

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
std::string generalTextOf(T value) {
  const Decimal decimal = decimalOf(value);
  NumberBuffer buffer;
  char* at = buffer.data();
  if (decimal.negative) *at++ = '-';
  return {buffer.data(), writeGeneral(at, decimal, kDigits<T>)};
}

template <class T>
void appendNumber(std::string& out, T value) {
  const Decimal decimal = decimalOf(value);
  NumberBuffer buffer;
  char* at = buffer.data();
  *at++ = decimal.negative ? '-' : ' ';
  at = writeGeneral(at, decimal, kDigits<T>);
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

std::int64_t toCount(double value) {
  constexpr double kLargest = 9007199254740992.0;
  const double nearest = std::nearbyint(value);
  if (!(std::abs(nearest) <= kLargest)) throw Fault("Overflow");
  return static_cast<std::int64_t>(nearest);
}

}  // namespace zevfit
