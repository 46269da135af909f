#pragma once

#include <optional>
#include <string_view>

namespace zevfit {

/// Free-field tokens over a stream of bytes; line ends are CR LF, LF or CR and mean no more than a
/// blank does, but that they end a token. A token takes its delimiter with it: blanks and tabs
/// behind it, then one comma or one line end.
class TokenStream {
 public:
  explicit TokenStream(std::string_view bytes) : bytes_(bytes) {}

  /// The end-of-file test: not a byte is left, be it blank.
  bool atEnd() const { return at_ == bytes_.size(); }
  std::size_t bytesLeft() const { return bytes_.size() - at_; }

  /// Blanks, tabs and line ends in front are skipped. A text in double quotes, the rest of the
  /// field dropped; else all up to the next comma or line end. Nothing when the stream ends first.
  std::optional<std::string_view> text();

  /// Blanks, tabs and line ends in front are skipped; ends at a blank, tab, comma or line end.
  /// Nothing when the stream ends first.
  std::optional<std::string_view> number();

 private:
  std::string_view bytes_;
  std::size_t at_ = 0;
};

}  // namespace zevfit
