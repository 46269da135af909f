#include "zvm/spatial/quoted.h"

#include <charconv>
#include <string_view>
#include <system_error>

namespace zevfit::spatial {
namespace {

/// As messages of PostgreSQL and of GDAL have them.
constexpr std::string_view kQuotes = "\"'`";
constexpr const char* kNothing = "...";

/// "%41" as "A".
std::string decoded(const std::string& text) {
  std::string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    unsigned char byte = 0;
    const char* const digits = text.data() + at + 1;
    const bool isCode = text[at] == '%' && at + 2 < text.size() &&
                        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
    plain += isCode ? static_cast<char>(byte) : text[at];
    if (isCode) at += 2;
  }
  return plain;
}

}  // namespace

std::string withoutQuoted(const std::string& text, const std::string& source,
                          const std::string& shown) {
  const std::string plain = decoded(source);
  const auto isHidden = [&](const std::string& piece) {
    const bool isOfSource = source.find(piece) != piece.npos || plain.find(piece) != piece.npos;
    return isOfSource && shown.find(piece) == piece.npos;
  };
  std::size_t open = text.find_first_of(kQuotes);
  std::string safe = text.substr(0, open);
  // A password can hold quotes of its own: what is between any two counts.
  while (open != text.npos) {
    const std::size_t close = text.find_first_of(kQuotes, open + 1);
    const std::string piece = text.substr(open + 1, close - open - 1);
    safe += text[open] + (close != text.npos && isHidden(piece) ? kNothing : piece);
    open = close;
  }
  return safe;
}

}  // namespace zevfit::spatial
