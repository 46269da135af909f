#pragma once

#include <cmath>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zevfit::zvm {

/// What stands for "no value": an empty field, NA and NaN, and what the user names besides.
class MissingValues {
 public:
  MissingValues() = default;
  /// One that reads as a number stands for all ways to write that number.
  explicit MissingValues(const std::vector<std::string>& texts);

  bool isMissing(double number) const {
    for (const double one : numbers_)
      if (number == one) return true;
    return std::isnan(number);
  }
  bool isMissing(std::string_view text) const;

 private:
  std::vector<double> numbers_;
  std::vector<std::string> texts_;
};

/// How a missing value stands among numbers.
inline constexpr double kMissing = std::numeric_limits<double>::quiet_NaN();

/// What a field holds: a number, kMissing, or why it is neither.
struct Field {
  double value = kMissing;
  std::optional<std::string> refusal;  ///< as in "`abc` is no number"
};

/// Reads a field without its quotes. Numbers have a decimal point, whatever the locale, and an
/// optional sign and exponent, also one with D as in Fortran.
Field readField(std::string_view text, const MissingValues& missing);

/// With small letters in place of the capitals of ASCII.
std::string lowerCase(std::string_view text);

/// Without blanks and tabs on both sides.
std::string_view withoutBlanks(std::string_view text);

}  // namespace zevfit::zvm
