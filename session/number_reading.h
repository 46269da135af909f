#pragma once

#include <optional>
#include <string_view>

namespace zevfit {

/// Reads a text of a field: leading blanks are skipped, the longest numeric prefix counts, with the
/// point as decimal sign; 0 when there is none. Throws Fault on overflow.
double leadingNumber(std::string_view text);

/// The whole text as a number: optional sign, digits with at most one point, optional exponent.
/// Nothing when it is not of that form or overflows.
std::optional<double> wholeNumber(std::string_view text);
std::optional<float> wholeFloat(std::string_view text);

}  // namespace zevfit
