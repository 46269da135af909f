// Number patterns: the first line is a number, the rest a pattern of any bytes.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

#include "fuzz/require.h"
#include "session/fault.h"
#include "session/number_pattern.h"
#include "session/number_reading.h"

namespace zevfit {
namespace {

// Above it the fifteenth digit can round up to what no double holds.
constexpr double kLargest = 1.79769313486231e308;

std::ptrdiff_t count(std::string_view text, char symbol) {
  return std::count(text.begin(), text.end(), symbol);
}

// What the user may type: digit places, blanks and one point.
bool isLegal(std::string_view pattern) {
  return pattern.find_first_not_of("#0. ") == std::string_view::npos && count(pattern, '.') <= 1;
}

double lastDecimal(std::string_view pattern) {
  const std::size_t point = std::min(pattern.find('.'), pattern.size());
  const std::string_view fraction = pattern.substr(point);
  return std::pow(10.0, -static_cast<double>(count(fraction, '#') + count(fraction, '0')));
}

void checkLegal(double value, std::string_view pattern, std::string shown) {
  require(count(shown, '.') == count(pattern, '.'), "the point is kept");
  require(count(shown, ' ') == count(pattern, ' '), "blanks are kept");
  std::erase(shown, ' ');
  const double read = leadingNumber(shown);
  const double tolerance =
      std::max(0.5001 * lastDecimal(pattern) + std::fabs(value) * 5.12e-15, 5e-324);
  require(std::fabs(read - value) <= tolerance, "a number shown reads back");
  require(shown.starts_with('-') == (read < 0), "the sign is that of the number shown");
}

void check(std::string_view number, std::string_view pattern) {
  const auto value = wholeNumber(number);
  if (!value || std::fabs(*value) > kLargest) return;
  const std::string shown = formatNumber(*value, pattern);
  if (isLegal(pattern)) checkLegal(*value, pattern, shown);
}

}  // namespace
}  // namespace zevfit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  const std::size_t line = std::min(text.find('\n'), text.size());
  const std::size_t behind = std::min(line + 1, text.size());
  zevfit::check(std::string_view(text).substr(0, line), std::string_view(text).substr(behind));
  return 0;
}
