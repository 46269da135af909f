#pragma once

#include <string>
#include <string_view>

namespace zevfit::checking {

/// A byte of Latin-1 that is no letter but steers a terminal or a printer.
bool isControl(char letter);

/// The same with blanks in place of control characters but tabs.
std::string withoutControls(std::string_view latin1);

/// The first character of a text in UTF-8; empty where the text is empty or begins with what is no
/// UTF-8 (RFC 3629).
std::string_view utf8Character(std::string_view text);

/// Where the first character beyond ASCII stands in a text that is UTF-8; npos where there is none
/// and for any other text.
std::size_t beyondAscii(std::string_view text);

/// A byte as two digits, as in "1B".
std::string hexText(char byte);

}  // namespace zevfit::checking
