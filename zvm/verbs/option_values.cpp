#include "zvm/verbs/option_values.h"

#include "zvm/points/field.h"

namespace zevfit::verbs {

std::vector<std::string> split(const std::string& text, char separator) {
  std::vector<std::string> parts(1);
  for (const char c : text)
    if (c == separator)
      parts.emplace_back();
    else
      parts.back() += c;
  return parts;
}

std::vector<std::string> splitAll(const std::vector<std::string>& lists, const std::string& what) {
  std::vector<std::string> all;
  for (const std::string& list : lists)
    for (const std::string& one : split(list, ',')) {
      all.emplace_back(zvm::withoutBlanks(one));
      if (all.back().empty()) refuseValue(what, "a list without gaps", list);
    }
  return all;
}

void refuseValue(const std::string& what, const std::string& kind, const std::string& text) {
  throw Failure(Exit::usage, what + " takes " + kind + ", not `" + text + '`');
}

void requireText(const std::string& text, const std::string& what, const std::string& kind) {
  if (text.empty())
    throw Failure(Exit::usage, what + " is empty" + (kind.empty() ? "" : "; it takes " + kind));
}

void takeValue(std::string& value, const std::string& text, const std::string& what,
               const std::string& kind) {
  requireText(text, what, kind);
  value = text;
}

void takeValue(std::optional<std::string>& value, const std::string& text,
               const std::string& /*what*/, const std::string& /*kind*/) {
  value = text;
}

}  // namespace zevfit::verbs
