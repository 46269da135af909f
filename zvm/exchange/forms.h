#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "session/form.h"
#include "zvm/exchange/texts.h"

namespace zevfit::exchange {

/// By Form: the words of a system for a form, and what it divides our range by, as code.
struct FormWords {
  const char* name;
  const char* divisor = "";
};
using FormTable = std::array<FormWords, kForms.size()>;

constexpr const FormWords& wordsOf(const FormTable& table, Form form) {
  return table[static_cast<std::size_t>(form)];
}

/// A range as code of a system whose own range is the parameter of its form, as in 250.5/3.
inline std::string rangeCode(const FormTable& table, Form form, double range) {
  return shortest(range) + wordsOf(table, form).divisor;
}

/// The forms as formulas in sill C, range a and distance h, for comments and JSON.
inline constexpr std::array<std::string_view, kForms.size()> kFormulas{
    "C (1.5 h/a - 0.5 (h/a)^3) up to a, C beyond", "C (1 - exp(-3 h/a))", "C (1 - exp(-3 (h/a)^2))",
    "h^a"};

}  // namespace zevfit::exchange
