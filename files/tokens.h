#pragma once

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <system_error>

#include "session/short_decimal.h"

namespace zevfit {

/// The value of a number token: 0 for an empty one; nothing where it is a text.
std::optional<double> numberOf(std::string_view token);
std::optional<float> floatOf(std::string_view token);

class TokenStream;

/// The next number token as a 32 bit integer, the nearest one, ties to even. Nothing when the
/// stream ends first, and for a text or a number beyond its range.
std::optional<std::int32_t> integerToken(TokenStream& in);

/// Free-field tokens over a stream of bytes; line ends are CR LF, LF or CR and mean no more than a
/// blank does, but that they end a token. A token takes its delimiter with it: blanks and tabs
/// behind it, then one comma or one line end.
class TokenStream {
 public:
  explicit TokenStream(std::string_view bytes) : bytes_(bytes) {}

  /// The end-of-file test: not a byte is left, not even a blank.
  bool atEnd() const { return at_ == bytes_.size(); }
  std::size_t bytesLeft() const { return bytes_.size() - at_; }

  /// Blanks, tabs and line ends in front are skipped. A text in double quotes, the rest of the
  /// field dropped; else all up to the next comma or line end. Nothing when the stream ends first.
  std::optional<std::string_view> text();

  /// Blanks, tabs and line ends in front are skipped; ends at a blank, tab, comma or line end.
  /// Nothing when the stream ends first.
  std::optional<std::string_view> number();

  /// All up to the next line end, which is taken with it; nothing in front is skipped. Nothing when
  /// the stream has ended.
  std::optional<std::string_view> line();

  /// The next token as a number where it has the usual form; nothing, and no byte taken but those
  /// skipped in front, where number() must have a closer look.
  template <class Number>
  std::optional<Number> plainNumber();

 private:
  static bool isBlank(char c) { return c == ' ' || c == '\t'; }
  static bool isLineEnd(char c) { return c == '\r' || c == '\n'; }
  static bool endsNumber(char c) { return isBlank(c) || c == ',' || isLineEnd(c); }

  void skipFront() {
    while (at_ < bytes_.size() && (isBlank(bytes_[at_]) || isLineEnd(bytes_[at_]))) ++at_;
  }
  void skipDelimiter() {
    std::size_t at = at_;
    while (at < bytes_.size() && isBlank(bytes_[at])) ++at;
    at_ = at;
    if (at_ == bytes_.size()) return;
    const char delimiter = bytes_[at_];
    if (isLineEnd(delimiter)) return skipLineEnd();
    if (delimiter == ',') ++at_;
  }
  /// Takes the line end that stands next; CR LF is one.
  void skipLineEnd() {
    const bool carriageReturn = bytes_[at_++] == '\r';
    if (carriageReturn && at_ < bytes_.size() && bytes_[at_] == '\n') ++at_;
  }
  std::string_view quoted();
  /// Up to the next comma or line end, which stays.
  std::string_view field();

  std::string_view bytes_;
  std::size_t at_ = 0;
};

template <class Number>
std::optional<Number> TokenStream::plainNumber() {
  skipFront();
  const char* first = bytes_.data() + at_;
  const char* last = bytes_.data() + bytes_.size();
  Number value = 0;
  const char* const behind = shortDecimal(first, last, value);
  if (behind != nullptr && (behind == last || endsNumber(*behind))) {
    at_ = static_cast<std::size_t>(behind - bytes_.data());
    skipDelimiter();
    return value;
  }
  const auto read = std::from_chars(first, last, value);
  // What is read as an infinity or as no number at all is a text here.
  if (read.ec != std::errc() || !std::isfinite(value)) return std::nullopt;
  if (read.ptr != last && !endsNumber(*read.ptr)) return std::nullopt;
  at_ = static_cast<std::size_t>(read.ptr - bytes_.data());
  skipDelimiter();
  return value;
}

}  // namespace zevfit
