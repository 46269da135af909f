#include "zvm/verbs/text.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "session/numbers.h"
#include "zvm/verbs/context.h"
#include "zvm/verbs/terminal.h"

namespace zevfit::verbs {
namespace {

bool isContinued(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

/// From 1; 0 for another text than a number of the list.
std::int64_t numberIn(const std::vector<std::string>& names, std::string_view asked) {
  std::int64_t number = 0;
  const auto read = std::from_chars(asked.data(), asked.data() + asked.size(), number);
  const bool whole = read.ec == std::errc() && read.ptr == asked.data() + asked.size();
  const auto count = static_cast<std::int64_t>(names.size());
  return whole && number >= 1 && number <= count ? number : 0;
}

std::int64_t subscriptOf(const char* what, const std::vector<std::string>& names,
                         const std::string& file, const std::string& asked) {
  const auto found = std::ranges::find(names, trimmed(asked));
  if (found != names.end()) return found - names.begin() + 1;
  if (const std::int64_t number = numberIn(names, asked); number > 0) return number;
  throw Failure(Exit::data, "no " + std::string(what) + " `" + asked + "` in " + file +
                                "; there are " + nearestFirst(asked, names));
}

std::vector<std::string> namesOf(const auto& table, std::int64_t count) {
  std::vector<std::string> names;
  names.reserve(static_cast<std::size_t>(count));
  for (std::int64_t i = 1; i <= count; ++i) names.push_back(utf8Of(trimmed(table(i))));
  return names;
}

}  // namespace

std::size_t lengthOf(std::string_view utf8) {
  return static_cast<std::size_t>(
      std::ranges::count_if(utf8, [](char c) { return !isContinued(c); }));
}

std::string nearestFirst(std::string_view asked, std::vector<std::string> names) {
  return listed(zvm::nearestFirst(asked, std::move(names)));
}

std::string listed(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) all += (all.empty() ? "" : ", ") + text;
  return all;
}

std::vector<std::string> variableNames(const Session& session) {
  return namesOf(session.varname, session.nvar);
}

std::vector<std::string> directionNames(const Session& session) {
  return namesOf(session.dirname, session.ndir);
}

std::int64_t variableOf(const Session& session, const std::string& file, const std::string& asked) {
  return subscriptOf("variable", variableNames(session), file, asked);
}

std::int64_t directionOf(const Session& session, const std::string& file,
                         const std::string& asked) {
  return subscriptOf("direction", directionNames(session), file, asked);
}

std::string table(std::vector<std::vector<std::string>> rows) {
  for (auto& row : rows) std::ranges::transform(row, row.begin(), terminalText);
  std::vector<std::size_t> widths;
  for (const auto& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], lengthOf(row[i]));
  }
  std::string text;
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i)
      line += row[i] + std::string(widths[i] - lengthOf(row[i]) + 2, ' ');
    text += line.substr(0, line.find_last_not_of(' ') + 1) + '\n';
  }
  return text;
}

}  // namespace zevfit::verbs
