#include "zvm/checking/letters.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace zevfit::checking {
namespace {

/// The first bytes of a character in UTF-8, and how many bytes it has.
struct Lead {
  unsigned first, last;
  std::size_t bytes;
};
constexpr std::array kLeads{Lead{0x00, 0x7F, 1}, Lead{0xC2, 0xDF, 2}, Lead{0xE0, 0xEF, 3},
                            Lead{0xF0, 0xF4, 4}};

unsigned codeOf(char byte) { return static_cast<unsigned char>(byte); }

bool isContinued(char byte) { return (codeOf(byte) & 0xC0U) == 0x80; }

}  // namespace

bool isControl(char letter) {
  const unsigned code = codeOf(letter);
  return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

std::string withoutControls(std::string_view latin1) {
  std::string text(latin1);
  const auto goes = [](char c) { return isControl(c) && c != '\t'; };
  std::ranges::replace_if(text, goes, ' ');
  return text;
}

std::string_view utf8Character(std::string_view text) {
  if (text.empty()) return {};
  const unsigned code = codeOf(text.front());
  const auto lead = std::ranges::find_if(
      kLeads, [code](const Lead& row) { return code >= row.first && code <= row.last; });
  if (lead == kLeads.end() || text.size() < lead->bytes) return {};
  const std::string_view character = text.substr(0, lead->bytes);
  return std::ranges::all_of(character.substr(1), isContinued) ? character : std::string_view();
}

std::size_t beyondAscii(std::string_view text) {
  std::size_t first = text.npos;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t bytes = utf8Character(text.substr(at)).size();
    if (bytes == 0) return text.npos;
    if (bytes > 1) first = std::min(first, at);
    at += bytes;
  }
  return first;
}

std::string hexText(char byte) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  return {kDigits[codeOf(byte) >> 4U], kDigits[codeOf(byte) & 0xFU]};
}

}  // namespace zevfit::checking
