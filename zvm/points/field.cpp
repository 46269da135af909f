#include "zvm/points/field.h"

#include <algorithm>
#include <cctype>
#include <charconv>

namespace zevfit::zvm {

namespace {

constexpr std::size_t kQuoted = 40;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// A number and nothing behind it. `tooLarge` for one beyond the range of a double.
std::optional<double> wholeNumber(std::string_view text, bool& tooLarge) {
  if (text.starts_with('+') && text.size() > 1 && text[1] != '-') text.remove_prefix(1);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (end != text.data() + text.size() || text.empty()) return std::nullopt;
  tooLarge = error == std::errc::result_out_of_range;
  if (error != std::errc()) return std::nullopt;
  return value;
}

std::optional<double> numberIn(std::string_view text, bool& tooLarge) {
  if (const auto value = wholeNumber(text, tooLarge); value || tooLarge) return value;
  std::string other = lowerCase(text);
  const std::size_t d = other.find('d');
  if (d == std::string::npos || d == 0) return std::nullopt;
  other[d] = 'e';
  return wholeNumber(other, tooLarge);
}

/// Digits on both sides of one comma, with a sign and an exponent as a number has them.
bool hasDecimalComma(std::string_view text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos) return false;
  std::string pointed(text);
  pointed[comma] = '.';
  const bool beside = (comma > 0 && isDigit(text[comma - 1])) ||
                      (comma + 1 < text.size() && isDigit(text[comma + 1]));
  bool tooLarge = false;
  return beside && wholeNumber(pointed, tooLarge);
}

std::string shown(std::string_view text) {
  if (text.size() <= kQuoted) return '`' + std::string(text) + '`';
  return '`' + std::string(text.substr(0, kQuoted)) + "...`";
}

}  // namespace

MissingValues::MissingValues(const std::vector<std::string>& texts) {
  for (const std::string& text : texts) {
    bool tooLarge = false;
    if (const auto number = numberIn(withoutBlanks(text), tooLarge)) numbers_.push_back(*number);
    texts_.emplace_back(withoutBlanks(text));
  }
}

bool MissingValues::isMissing(std::string_view text) const {
  return text.empty() || text == "NA" || lowerCase(text) == "nan" ||
         std::ranges::count(texts_, text) > 0;
}

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  return lower;
}

std::string_view withoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") + 1 - first);
}

Field readField(std::string_view text, const MissingValues& missing) {
  text = withoutBlanks(text);
  if (missing.isMissing(text)) return {};
  bool tooLarge = false;
  const auto value = numberIn(text, tooLarge);
  if (tooLarge) return {kMissing, shown(text) + " is beyond the range of numbers"};
  if (value && missing.isMissing(*value)) return {};
  if (value && std::isinf(*value)) return {kMissing, shown(text) + " is no finite number"};
  if (value) return {*value, std::nullopt};
  if (hasDecimalComma(text))
    return {kMissing, shown(text) + " has a decimal comma; numbers take a point"};
  return {kMissing, shown(text) + " is no number"};
}

}  // namespace zevfit::zvm
