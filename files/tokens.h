#pragma once

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "session/short_decimal.h"

namespace zevfit {

/// The value of a number token: 0 for an empty one; nothing where it is a text.
std::optional<double> numberOf(std::string_view token);
std::optional<float> floatOf(std::string_view token);

class TokenStream;

/// The next number token as a 32 bit integer, the nearest one, ties to even. Nothing when the
/// stream ends first, and for a text or a number beyond its range.
std::optional<std::int32_t> integerToken(TokenStream& in);

/// Bytes in pieces, each of which is gone from memory when it has been passed.
class Pieces {
 public:
  explicit Pieces(std::deque<std::string> pieces) : behind_(std::move(pieces)) {
    for (const std::string& piece : behind_) bytesBehind_ += piece.size();
    goOn(0);
  }

  /// What is at hand, and how much follows.
  std::string_view atHand() const { return atHand_; }
  std::size_t bytesBehind() const { return bytesBehind_; }
  /// Lets go of so many of the bytes at hand and takes more; false where none follows.
  bool goOn(std::size_t passed);

 private:
  std::string atHand_;
  std::deque<std::string> behind_;
  std::size_t bytesBehind_ = 0;
};

/// Free-field tokens over a stream of bytes; line ends are CR LF, LF or CR and mean no more than a
/// blank does, but that they end a token. A token takes its delimiter with it: blanks and tabs
/// behind it, then one comma or one line end.
class TokenStream {
 public:
  explicit TokenStream(std::string_view bytes) : bytes_(bytes) {}
  /// A token is there until the next one is read. No copy goes on beside the stream.
  explicit TokenStream(Pieces& pieces) : bytes_(pieces.atHand()), pieces_(&pieces) {}

  /// The end-of-file test: not a byte is left, not even a blank.
  bool atEnd() const { return at_ == bytes_.size(); }
  std::size_t bytesLeft() const {
    return bytes_.size() - at_ + (pieces_ ? pieces_->bytesBehind() : 0);
  }

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
  /// Takes a token once more with a further piece of the bytes where it has reached the end of
  /// those at hand: it may go on there. So some byte is at hand until the stream ends.
  template <class Take>
  auto whole(Take take) {
    for (;;) {
      const std::size_t start = at_;
      const auto token = take();
      if (at_ < bytes_.size() || !goOn(start)) return token;
    }
  }
  /// False, and nothing has changed, where no more bytes follow.
  bool goOn(std::size_t passed) {
    if (!pieces_ || !pieces_->goOn(passed)) return false;
    bytes_ = pieces_->atHand();
    at_ = 0;
    return true;
  }
  /// Behind a number of the usual form in the bytes at hand; null for any other token.
  template <class Number>
  const char* behindNumber(Number& value);
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
  Pieces* pieces_ = nullptr;
};

template <class Number>
const char* TokenStream::behindNumber(Number& value) {
  skipFront();
  const char* const first = bytes_.data() + at_;
  const char* const last = bytes_.data() + bytes_.size();
  const char* const behind = shortDecimal(first, last, value);
  if (behind != nullptr && (behind == last || endsNumber(*behind))) return behind;
  const auto read = std::from_chars(first, last, value);
  // What is read as an infinity or as no number at all is a text here.
  if (read.ec != std::errc() || !std::isfinite(value)) return nullptr;
  return read.ptr == last || endsNumber(*read.ptr) ? read.ptr : nullptr;
}

template <class Number>
std::optional<Number> TokenStream::plainNumber() {
  for (;;) {
    const std::size_t start = at_;
    Number value = 0;
    const char* const behind = behindNumber(value);
    if (behind != nullptr) {
      at_ = static_cast<std::size_t>(behind - bytes_.data());
      skipDelimiter();
    }
    if (at_ == bytes_.size() && goOn(start)) continue;
    if (behind == nullptr) return std::nullopt;
    return value;
  }
}

}  // namespace zevfit
