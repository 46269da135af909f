#include "zvm/verbs/terminal.h"

#include <algorithm>
#include <cstddef>

#include "zvm/checking/letters.h"

namespace zevfit::verbs {
namespace {

constexpr std::string_view kBlanks = "\t\n\r";

/// U+0080 to U+009F are control characters as well.
bool isControl(std::string_view character) {
  const bool isLatin1 = character.size() == 1 || character.front() == '\xC2';
  return isLatin1 && checking::isControl(character.back());
}

/// A character as it is shown; `first` is its first byte, or one that is no character.
std::string shown(std::string_view character, char first) {
  if (character.empty()) return "\\x" + checking::hexText(first);
  if (kBlanks.find(character) != kBlanks.npos) return " ";
  if (isControl(character)) return "\\x" + checking::hexText(character.back());
  return std::string(character);
}

}  // namespace

std::string terminalText(std::string_view utf8) {
  std::string text;
  while (!utf8.empty()) {
    const std::string_view character = checking::utf8Character(utf8);
    text += shown(character, utf8.front());
    utf8.remove_prefix(std::max<std::size_t>(character.size(), 1));
  }
  return text;
}

}  // namespace zevfit::verbs
