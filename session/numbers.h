#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "session/cell.h"

namespace zevfit {

/// Shortest plain decimal text, up to 15 significant digits for a double and 7 for a float;
/// exponent form (1E-05, 1E+15) where the decimal exponent is below -4 or not below that number of
/// digits.
std::string generalText(double value);
std::string generalText(float value);

/// A number in a file: blank or minus sign, general text form, blank. A cell that holds a text is
/// written as that text.
std::string fileNumber(double value);
std::string fileNumber(float value);
std::string fileNumber(const Cell& cell);
/// The same, appended without an allocation of its own.
void appendFileNumber(std::string& out, double value);
void appendFileNumber(std::string& out, float value);
void appendFileNumber(std::string& out, const Cell& cell);

/// Blank or minus sign and the digits, for captions and keys.
std::string signedText(std::int64_t value);

/// Appends blanks up to the print zone (of 14 columns) in which the next field of a line starts;
/// `lineStart` is where the line begins in `out`. At least one blank stands between two fields.
void nextPrintZone(std::string& out, std::size_t lineStart);

/// Without the blanks on both sides, or in front alone.
std::string_view trimmed(std::string_view text);
std::string_view trimmedLeft(std::string_view text);
/// Letters A to Z in lower case.
std::string lowered(std::string_view text);

/// The nearest integer, ties to even; throws Fault when it is no 16 bit signed number.
std::int16_t toInt16(double value);
/// The same for a count; throws Fault beyond the whole numbers that a double tells apart.
std::int64_t toCount(double value);
/// The nearest number of single precision; throws Fault beyond its range.
float toSingle(double value);

}  // namespace zevfit
