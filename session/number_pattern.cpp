#include "session/number_pattern.h"

#include <algorithm>

#include "session/decimal.h"

namespace zevfit {
namespace {

bool isPlace(char symbol) { return symbol == '#' || symbol == '0'; }

void appendDigits(std::string& out, const Decimal& decimal, std::int64_t from, std::int64_t to) {
  for (std::int64_t place = from; place < to; ++place) out += decimal.digit(place);
}

// Digits fill the places from the right; those beyond the leftmost place stand in front of it, and
// all of them at the end where there is no place.
void appendInteger(std::string& out, const Decimal& decimal, std::string_view pattern) {
  const std::int64_t digits = std::max(decimal.point, 0);
  std::int64_t placesLeft = std::count_if(pattern.begin(), pattern.end(), isPlace);
  std::int64_t written = 0;
  for (const char symbol : pattern) {
    if (!isPlace(symbol)) {
      out += symbol;
      continue;
    }
    const std::int64_t end = digits - --placesLeft;
    if (end > 0) {
      appendDigits(out, decimal, written, end);
      written = end;
    } else if (symbol == '0') {
      out += '0';
    }
  }
  appendDigits(out, decimal, written, digits);
}

// Places behind the last 0 write nothing where only zeros are left.
std::int64_t shownPlaces(const Decimal& decimal, std::string_view pattern) {
  std::int64_t places = 0;
  std::int64_t forced = 0;
  for (const char symbol : pattern) {
    if (isPlace(symbol)) ++places;
    if (symbol == '0') forced = places;
  }
  const std::int64_t decimals = decimal.count - decimal.point;
  return std::max(forced, decimals);
}

void appendFraction(std::string& out, const Decimal& decimal, std::string_view pattern) {
  const std::int64_t shown = shownPlaces(decimal, pattern);
  std::int64_t place = 0;
  for (const char symbol : pattern) {
    if (!isPlace(symbol)) {
      out += symbol;
    } else if (place++ < shown) {
      out += decimal.digit(decimal.point + place - 1);
    }
  }
}

}  // namespace

std::string formatNumber(double value, std::string_view pattern) {
  const std::size_t split = std::min(pattern.find('.'), pattern.size());
  const std::string_view integer = pattern.substr(0, split);
  const std::string_view fraction = pattern.substr(std::min(split + 1, pattern.size()));
  Decimal decimal = decimalOf(value);
  decimal.roundTo(std::count_if(fraction.begin(), fraction.end(), isPlace));
  std::string out;
  if (decimal.negative) out += '-';
  appendInteger(out, decimal, integer);
  if (split < pattern.size()) out += '.';
  appendFraction(out, decimal, fraction);
  return out;
}

}  // namespace zevfit
