#include "files/tokens.h"

#include <algorithm>

#include "session/number_reading.h"

namespace zevfit {

std::optional<double> numberOf(std::string_view token) {
  return token.empty() ? 0 : wholeNumber(token);
}

std::optional<float> floatOf(std::string_view token) {
  return token.empty() ? 0 : wholeFloat(token);
}

std::optional<std::int32_t> integerToken(TokenStream& in) {
  const auto token = in.number();
  const auto value = token ? numberOf(*token) : std::nullopt;
  if (!value) return std::nullopt;
  const double nearest = std::nearbyint(*value);
  if (!(nearest >= INT32_MIN && nearest <= INT32_MAX)) return std::nullopt;
  return static_cast<std::int32_t>(nearest);
}

std::string_view TokenStream::field() {
  const std::size_t end = std::min(bytes_.find_first_of(",\r\n", at_), bytes_.size());
  const std::string_view taken = bytes_.substr(at_, end - at_);
  at_ = end;
  return taken;
}

std::string_view TokenStream::quoted() {
  const std::size_t first = at_ + 1;
  const std::size_t close = std::min(bytes_.find('"', first), bytes_.size());
  at_ = std::min(close + 1, bytes_.size());
  field();
  return bytes_.substr(first, close - first);
}

bool Pieces::goOn(std::size_t passed) {
  if (behind_.empty()) return false;
  atHand_.erase(0, passed);
  // As many bytes again at least, so that a token of any length is looked at a few times only.
  const std::size_t enough = 2 * atHand_.size() + 1;
  while (atHand_.size() < enough && !behind_.empty()) {
    atHand_ += behind_.front();
    bytesBehind_ -= behind_.front().size();
    behind_.pop_front();
  }
  return true;
}

std::optional<std::string_view> TokenStream::text() {
  return whole([this]() -> std::optional<std::string_view> {
    skipFront();
    if (atEnd()) return std::nullopt;
    const std::string_view token = bytes_[at_] == '"' ? quoted() : field();
    skipDelimiter();
    return token;
  });
}

std::optional<std::string_view> TokenStream::number() {
  return whole([this]() -> std::optional<std::string_view> {
    skipFront();
    if (atEnd()) return std::nullopt;
    const std::size_t first = at_;
    while (at_ < bytes_.size() && !endsNumber(bytes_[at_])) ++at_;
    const std::string_view token = bytes_.substr(first, at_ - first);
    skipDelimiter();
    return token;
  });
}

std::optional<std::string_view> TokenStream::line() {
  return whole([this]() -> std::optional<std::string_view> {
    if (atEnd()) return std::nullopt;
    const std::size_t end = std::min(bytes_.find_first_of("\r\n", at_), bytes_.size());
    const std::string_view taken = bytes_.substr(at_, end - at_);
    at_ = end;
    if (!atEnd()) skipLineEnd();
    return taken;
  });
}

}  // namespace zevfit
