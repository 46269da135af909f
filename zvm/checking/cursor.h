#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "files/tokens.h"

namespace zevfit::checking {

/// A place of a file: line and column in bytes, both from 1.
struct Place {
  std::size_t line = 1, column = 1;
  bool operator==(const Place&) const = default;
  /// It stands before the other.
  bool operator<(const Place& other) const {
    return line != other.line ? line < other.line : column < other.column;
  }
};

/// Where the lines of a file begin; line ends are CR LF, LF and CR.
class LineMap {
 public:
  explicit LineMap(std::string_view bytes);

  /// The place of a byte. That of the end is behind the last byte of the last line that holds one.
  Place at(std::size_t offset) const;
  /// A line without its end; empty where there is no such line.
  std::string_view line(std::size_t number) const;

 private:
  std::string_view bytes_;
  std::vector<std::size_t> starts_;
};

/// A token and where it stands; that of a text in quotes is the place of the first quote.
struct Token {
  std::string_view text;
  std::size_t offset = 0;
  bool isQuoted = false;
  /// Something stands between the closing quote and the end of the field.
  bool isCut = false;
};

/// The tokens of the reader, with their places.
class Cursor {
 public:
  explicit Cursor(std::string_view bytes) : bytes_(bytes), in_(bytes) {}

  /// Nothing at the end of the file.
  std::optional<Token> text();
  std::optional<Token> number();
  /// What has not been read yet.
  std::string_view rest() const { return bytes_.substr(offset()); }
  std::size_t offset() const { return bytes_.size() - in_.bytesLeft(); }

 private:
  Token quoted(Token token) const;

  std::string_view bytes_;
  TokenStream in_;
};

}  // namespace zevfit::checking
