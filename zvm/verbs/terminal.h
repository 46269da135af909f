#pragma once

#include <string>
#include <string_view>

namespace zevfit::verbs {

/// A text on one line of a terminal, which no name in it can steer: tabs and line ends become
/// blanks, other control characters and what is no UTF-8 are told as in \x1B.
std::string terminalText(std::string_view utf8);

}  // namespace zevfit::verbs
