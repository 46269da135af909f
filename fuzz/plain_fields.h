#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace zevfit {

/// The fields of a variogram file by docs/file-formats.md alone, without the tokens of the house: a
/// second opinion on where they end.
class PlainFields {
 public:
  explicit PlainFields(std::string_view bytes) : rest_(bytes) {}

  /// One field is taken; false where nothing is left.
  bool takeText() { return take(",\r\n", true); }
  bool takeNumber() { return take(" \t,\r\n", false); }
  bool takeNumbers(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
      if (!takeNumber()) return false;
    return true;
  }
  bool takeTexts(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
      if (!takeText()) return false;
    return true;
  }

  /// Nothing but blanks and line ends is left.
  bool isAtEnd() const { return rest_.find_first_not_of(" \t\r\n") == rest_.npos; }

 private:
  void drop(std::size_t count) { rest_.remove_prefix(std::min(count, rest_.size())); }

  bool take(const char* ends, bool takesQuotes) {
    drop(rest_.find_first_not_of(" \t\r\n"));
    if (rest_.empty()) return false;
    if (takesQuotes && rest_.front() == '"') {
      drop(1);
      drop(rest_.find('"'));
    }
    drop(rest_.find_first_of(ends));
    drop(rest_.find_first_not_of(" \t"));
    const bool isTwo = rest_.substr(0, 2) == "\r\n";
    if (!rest_.empty() && std::string_view(",\r\n").find(rest_.front()) != rest_.npos)
      drop(isTwo ? 2 : 1);
    return true;
  }

  std::string_view rest_;
};

}  // namespace zevfit
