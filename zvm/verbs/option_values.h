#pragma once

#include <charconv>
#include <cstddef>
#include <string>
#include <system_error>
#include <vector>

#include "zvm/verbs/context.h"
#include "zvm/verbs/text.h"

namespace zevfit::verbs {

/// The texts between separators.
std::vector<std::string> split(const std::string& text, char separator);
/// The texts between commas of all lists, without blanks around them, which no name has.
std::vector<std::string> splitAll(const std::vector<std::string>& lists);

/// A whole text as a number. `what` begins the message of the Failure for another one.
template <class Number>
Number numberOf(const std::string& text, const std::string& what) {
  Number value = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  if (read.ec != std::errc() || read.ptr != text.data() + text.size())
    throw Failure(Exit::usage, what + " takes another form than `" + text + "`");
  return value;
}

/// A value of an option by its name.
template <class Value>
struct Choice {
  const char* name;
  Value value;
};

/// The value of the choice that is given. Throws Failure with the names of all for another one.
template <class Value, std::size_t Count>
Value choiceOf(const std::string& given, const std::string& option,
               const Choice<Value> (&choices)[Count]) {
  std::vector<std::string> names;
  for (const auto& choice : choices) {
    if (given == choice.name) return choice.value;
    names.emplace_back(choice.name);
  }
  throw Failure(Exit::usage,
                "no " + option + " `" + given + "`; there are " + nearestFirst(given, names));
}

}  // namespace zevfit::verbs
