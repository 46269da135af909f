#include "zvm/spatial/errors.h"

#include <regex>
#include <sstream>
#include <string_view>
#include <utility>

#include "zvm/spatial/quoted.h"

namespace zevfit::spatial {
namespace {

constexpr std::string_view kPrefix = "ERROR:  ";
/// In front of a query and, in the last line, of what SQLite says of it.
constexpr std::string_view kQueryAndReason = "In ExecuteSQL(): ";

/// What is said of a file that zvm reads whatever its name.
constexpr std::string_view kOfName = "but non conformant file extension";

/// A part of the driver's own query, as PostgreSQL shows it, and what points to a place in it.
bool isOfQuery(const std::string& line) {
  return line.starts_with("LINE ") || line.find_first_not_of(" ^\t\r") == line.npos;
}

/// A message of a driver in one line, without a query that the user has not written.
std::string plainMessage(const std::string& text) {
  const std::size_t last = text.starts_with(kQueryAndReason) ? text.rfind('\n') : text.npos;
  std::istringstream lines(last == text.npos ? text : text.substr(last + 1));
  std::string plain;
  for (std::string line; std::getline(lines, line);) {
    if (isOfQuery(line)) continue;
    line.erase(0, line.find_first_not_of(' '));
    line.erase(line.find_last_not_of(" \r") + 1);
    plain += (plain.empty() ? "" : " ") + line;
  }
  return plain.starts_with(kPrefix) ? plain.substr(kPrefix.size()) : plain;
}

void replaceAll(std::string& text, const std::string& old, const std::string& other) {
  for (std::size_t at = 0; (at = text.find(old, at)) != text.npos; at += other.size())
    text.replace(at, old.size(), other);
}

/// What a driver gets of a connection, behind its own name.
std::string behindName(const std::string& source) { return source.substr(source.find(':') + 1); }

}  // namespace

Errors::Errors(std::function<void(const std::string&)> warn) : warn_(std::move(warn)) {
  CPLPushErrorHandlerEx(&Errors::take, this);
}

Errors::~Errors() { CPLPopErrorHandler(); }

void Errors::take(CPLErr kind, CPLErrorNum, const char* text) {
  auto* const self = static_cast<Errors*>(CPLGetErrorHandlerUserData());
  const bool isOfName = std::string_view(text).ends_with(kOfName);
  if (kind == CE_Warning && !isOfName) self->warn_(plainMessage(text));
  if (kind >= CE_Failure && self->first_.empty()) self->first_ = plainMessage(text);
}

std::string Errors::reason() const { return isAny() ? first_ : "OGR does not say why"; }

std::string withoutPasswords(std::string text, const std::string& source,
                             const std::string& shown) {
  if (source == shown) return text;
  replaceAll(text, source, shown);
  replaceAll(text, behindName(source), behindName(shown));
  static const std::regex user(R"(://[^\s"'`]*@)"), query(R"((://[^\s"'`?]*)\?[^\s"'`]*)"),
      word(R"(\b(password|passwd|pwd)\s*=\s*('(\\.|[^'\\])*'|\{[^}]*\}|"[^"]*"|[^\s;,]+))",
           std::regex::icase),
      // What libpq quotes of a connection may be the rest of a password that holds a blank.
      rest(R"re((missing "=" after|invalid connection option) "[^"]*")re");
  text = std::regex_replace(text, user, "://");
  text = std::regex_replace(text, query, "$1");
  text = std::regex_replace(text, word, "$1=...");
  return withoutQuoted(std::regex_replace(text, rest, "$1 a word"), source, shown);
}

}  // namespace zevfit::spatial
