// Number texts: any bytes as the text of a field and as a token of a file.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "fuzz/require.h"
#include "session/fault.h"
#include "session/number_reading.h"
#include "session/numbers.h"

namespace zevfit {
namespace {

// Above it the fifteenth digit can round up to what no double holds.
constexpr double kLargest = 1.79769313486231e308;

std::optional<double> leading(const std::string& text) {
  try {
    return leadingNumber(text);
  } catch (const Fault&) {
    return std::nullopt;
  }
}

void checkDouble(const std::string& text, double value) {
  require(std::isfinite(value), "a token is a finite number");
  require(std::strtod(text.c_str(), nullptr) == value, "a token has the value of its digits");
  require(leading(text) == value, "a token is its own numeric prefix");
  require(leading(" \t" + text + "x") == value, "blanks in front and letters behind do not count");
  if (std::fabs(value) > kLargest) return;
  const std::string written = generalText(value);
  const auto read = wholeNumber(written);
  require(read && std::fabs(*read - value) <= std::max(std::fabs(value) * 5.12e-15, 5e-324),
          "a text reads back to fifteen digits");
  require(generalText(*read) == written, "a number read back has the same text");
  require(leadingNumber(fileNumber(value)) == *read, "a file number reads back");
}

void checkFloat(const std::string& text, float value) {
  require(std::isfinite(value), "a single precision token is a finite number");
  require(std::strtof(text.c_str(), nullptr) == value, "and has the value of its digits");
  require(wholeNumber(text).has_value(), "and is a number in double precision too");
  const double exact = static_cast<double>(value);
  const auto read = wholeFloat(generalText(value));
  require(read && std::fabs(static_cast<double>(*read) - exact) <=
                      std::max(std::fabs(exact) * 5.6e-7, 1.5e-45),
          "a single precision text reads back to seven digits");
}

void checkInt16(double value) {
  try {
    require(std::fabs(toInt16(value) - value) <= 0.5,
            "the nearest integer is no further than a half");
  } catch (const Fault&) {
    require(value >= 32767.5 || value < -32768.5, "numbers of sixteen bits are kept");
  }
}

}  // namespace
}  // namespace zevfit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  if (const auto value = zevfit::leading(text)) {
    zevfit::require(std::isfinite(*value), "a field is a finite number");
    zevfit::checkInt16(*value);
  }
  if (const auto value = zevfit::wholeNumber(text)) zevfit::checkDouble(text, *value);
  if (const auto value = zevfit::wholeFloat(text)) zevfit::checkFloat(text, *value);
  return 0;
}
