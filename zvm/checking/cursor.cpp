#include "zvm/checking/cursor.h"

#include <algorithm>

namespace zevfit::checking {

LineMap::LineMap(std::string_view bytes) : bytes_(bytes), starts_{0} {
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const bool returns = bytes[i] == '\r' && (i + 1 == bytes.size() || bytes[i + 1] != '\n');
    if ((returns || bytes[i] == '\n') && i + 1 < bytes.size()) starts_.push_back(i + 1);
  }
}

Place LineMap::at(std::size_t offset) const {
  if (offset >= bytes_.size()) return {starts_.size(), line(starts_.size()).size() + 1};
  const auto next = std::ranges::upper_bound(starts_, offset);
  const auto number = static_cast<std::size_t>(next - starts_.begin());
  return {number, offset - starts_[number - 1] + 1};
}

std::string_view LineMap::line(std::size_t number) const {
  if (number < 1 || number > starts_.size()) return {};
  const std::string_view from = bytes_.substr(starts_[number - 1]);
  return from.substr(0, from.find_first_of("\r\n"));
}

Token Cursor::quoted(Token token) const {
  if (token.offset == 0 || bytes_[token.offset - 1] != '"') return token;
  const std::string_view behind =
      bytes_.substr(std::min(token.offset + token.text.size() + 1, bytes_.size()));
  const std::string_view dropped = behind.substr(0, behind.find_first_of(",\r\n"));
  token.isQuoted = true;
  token.isCut = dropped.find_first_not_of(" \t") != dropped.npos;
  --token.offset;
  return token;
}

std::optional<Token> Cursor::text() {
  const auto text = in_.text();
  if (!text) return std::nullopt;
  return quoted({*text, static_cast<std::size_t>(text->data() - bytes_.data())});
}

std::optional<Token> Cursor::number() {
  const auto text = in_.number();
  if (!text) return std::nullopt;
  return Token{*text, static_cast<std::size_t>(text->data() - bytes_.data())};
}

}  // namespace zevfit::checking
