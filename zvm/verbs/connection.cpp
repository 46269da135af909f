#include "zvm/verbs/connection.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

#include "zvm/points/field.h"

namespace zevfit::verbs {
namespace {

namespace fs = std::filesystem;

/// Words of connections that tell nobody how to get in.
constexpr std::array<std::string_view, 15> kOpenWords{
    "dbname", "database", "host",   "hostaddr", "server", "port",          "user",   "uid",
    "dsn",    "service",  "driver", "schemas",  "tables", "active_schema", "sslmode"};

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }
/// Between the words of any driver.
bool isSeparator(char c) { return isBlank(c) || c == ';' || c == ','; }

/// Behind a value: in quotes with backslashes as those of PostgreSQL, in braces as those of ODBC,
/// or up to a separator that no backslash stands in front of.
std::size_t valueEnd(std::string_view text, std::size_t at) {
  constexpr std::string_view kOpening = "'\"{", kClosing = "'\"}";
  const std::size_t kind = at < text.size() ? kOpening.find(text[at]) : kOpening.npos;
  const bool isQuoted = kind != kOpening.npos;
  if (isQuoted) ++at;
  for (; at < text.size(); ++at) {
    const bool isEnd = isQuoted ? text[at] == kClosing[kind] : isSeparator(text[at]);
    const bool isTwice = isQuoted && isEnd && text.substr(at + 1, 1) == text.substr(at, 1);
    if (isEnd && !isTwice) break;
    if (isTwice || text[at] == '\\') ++at;
  }
  // What stands right behind a quote is no word of its own.
  while (at < text.size() && !isSeparator(text[at])) ++at;
  return std::min(at, text.size());
}

bool isOpenWord(std::string_view word) {
  return std::ranges::count(kOpenWords, zvm::lowerCase(word)) > 0;
}

/// A value could be a whole connection of its own.
bool isPlainValue(std::string_view value) { return value.find_first_of("@=") == value.npos; }

/// "host=h" where that may be shown; a name alone only as the first, and where it is no user with a
/// password. Empty otherwise.
std::string shownWord(std::string_view word, std::string_view value, bool isAlone, bool isFirst) {
  if (!isPlainValue(value)) return "";
  if (!isAlone) return isOpenWord(word) ? std::string(word) + '=' + std::string(value) : "";
  return isFirst && word.find('/') == word.npos ? std::string(word) : "";
}

/// Of "dbname=geo password=p host=h", with blanks, commas or semicolons between.
std::string shownWords(std::string_view text) {
  std::string shown, separator;
  bool isFirst = true;
  for (std::size_t at = 0; at < text.size(); isFirst = false) {
    const std::size_t first = at;
    while (at < text.size() && !isSeparator(text[at]) && text[at] != '=') ++at;
    const std::string_view word = text.substr(first, at - first);
    std::size_t sign = at;
    while (sign < text.size() && isBlank(text[sign])) ++sign;
    const bool isAlone = sign == text.size() || text[sign] != '=';
    std::string_view value;
    if (!isAlone) {
      std::size_t begin = sign + 1;
      while (begin < text.size() && isBlank(text[begin])) ++begin;
      at = valueEnd(text, begin);
      value = text.substr(begin, at - begin);
    }
    const std::string one = shownWord(word, value, isAlone, isFirst);
    if (!one.empty()) shown += (shown.empty() ? "" : separator) + one;
    if (at < text.size()) separator = text[at++];
    while (at < text.size() && isSeparator(text[at])) ++at;
  }
  return shown;
}

/// "user:password@" may stand in front of the host, and anything behind a question mark.
std::string shownAddress(std::string_view address) {
  const std::size_t host = address.find("://") + 3;
  std::string_view place = address.substr(host);
  place.remove_prefix(place.rfind('@') + 1);
  place = place.substr(0, place.find_first_of("?&#"));
  return std::string(address.substr(0, host)) + std::string(isPlainValue(place) ? place : "");
}

bool isAddress(std::string_view text) {
  const std::size_t end = text.find("://");
  return end != text.npos && std::ranges::all_of(text.substr(0, end), [](unsigned char c) {
           return std::isalnum(c) != 0 || c == '+' || c == '.' || c == '-' || c == '_';
         });
}

std::string shownRest(std::string_view rest) {
  std::error_code unknown;
  if (fs::exists(rest, unknown)) return std::string(rest);
  if (isAddress(rest)) return shownAddress(rest);
  const std::size_t user = rest.find_first_of("@=");
  const bool isUser = user != rest.npos && rest[user] == '@';
  return shownWords(isUser ? rest.substr(rest.rfind('@') + 1) : rest);
}

}  // namespace

bool isConnection(const std::string& source) {
  const std::size_t colon = source.find(':');
  if (colon == source.npos || colon < 2) return false;
  const auto isLetter = [](unsigned char c) { return std::isalnum(c) != 0 || c == '_'; };
  std::error_code unknown;
  return std::all_of(source.begin(), source.begin() + static_cast<std::ptrdiff_t>(colon),
                     isLetter) &&
         !fs::exists(source, unknown);
}

std::string shownSource(const std::string& source) {
  if (!isConnection(source)) return source;
  if (isAddress(source)) return shownAddress(source);
  const std::size_t colon = source.find(':') + 1;
  return source.substr(0, colon) + shownRest(std::string_view(source).substr(colon));
}

}  // namespace zevfit::verbs
