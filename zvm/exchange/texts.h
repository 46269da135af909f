#pragma once

#include <array>
#include <initializer_list>
#include <string>
#include <string_view>

namespace zevfit::exchange {

/// The shortest text that reads back as the same number, with a point whatever the locale.
std::string shortest(double value);
std::string shortest(float value);
/// The same of several, with commas and blanks between them.
std::string listed(std::initializer_list<double> values);

/// A name from a file, which is Latin-1, as UTF-8 on one line: control characters become blanks,
/// blanks on both sides are dropped.
std::string nameText(std::string_view latin1);
/// A text in double quotes as R, Python and C take it.
std::string quoted(std::string_view text);
/// A field of a CSV file, quoted where RFC 4180 asks for it.
std::string csvField(std::string_view text);

}  // namespace zevfit::exchange
