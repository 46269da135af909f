#pragma once

#include <charconv>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <system_error>
#include <type_traits>
#include <vector>

#include "zvm/verbs/context.h"
#include "zvm/verbs/text.h"

namespace zevfit::verbs {

/// The texts between separators.
std::vector<std::string> split(const std::string& text, char separator);
/// The texts between commas of all lists, without blanks around them, which no name has. Throws
/// Failure for an empty one. `what`: the option.
std::vector<std::string> splitAll(const std::vector<std::string>& lists, const std::string& what);

/// Throws Failure: "WHAT takes KIND, not `TEXT`".
[[noreturn]] void refuseValue(const std::string& what, const std::string& kind,
                              const std::string& text);

/// A whole text as a number in decimals; nothing for another one, and for NaN.
template <class Number>
std::optional<Number> readNumber(const std::string& text) {
  Number value = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
  if (read.ec != std::errc() || read.ptr != text.data() + text.size()) return std::nullopt;
  if constexpr (std::is_floating_point_v<Number>)
    if (std::isnan(value)) return std::nullopt;
  return value;
}

/// What a number is called in a message.
template <class Number>
inline constexpr const char* kNumberKind = std::is_floating_point_v<Number> ? "a number"
                                           : std::is_unsigned_v<Number> ? "a whole number from 0"
                                                                        : "a whole number";

/// The same; throws Failure for another text. `what`: the option.
template <class Number>
Number numberOf(const std::string& text, const std::string& what,
                const char* kind = kNumberKind<Number>) {
  const std::optional<Number> value = readNumber<Number>(text);
  if (!value) refuseValue(what, kind, text);
  return *value;
}

/// Throws Failure for an empty text. `what`: the option; `kind`: the type that its help shows.
void requireText(const std::string& text, const std::string& what, const std::string& kind);

// What is given to an option becomes its value. `what`: the option; `kind`: the type that its help
// shows. A Failure tells that a text is none; an empty one is none of a text, except where it may
// stand for a name, which is then told with those that there are.
void takeValue(std::string& value, const std::string& text, const std::string& what,
               const std::string& kind);
void takeValue(std::optional<std::string>& value, const std::string& text, const std::string& what,
               const std::string& kind);
template <class Number>
requires std::is_arithmetic_v<Number>
void takeValue(Number& value, const std::string& text, const std::string& what,
               const std::string& /*kind*/) {
  value = numberOf<Number>(text, what);
}
template <class Number>
requires std::is_arithmetic_v<Number>
void takeValue(std::optional<Number>& value, const std::string& text, const std::string& what,
               const std::string& /*kind*/) {
  value = numberOf<Number>(text, what);
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
