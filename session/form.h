#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace zevfit {

/// The forms of a structure.
enum class Form { spherical, exponential, gaussian, power };

/// The letter of a form in files and on the panel, and its number in the kriging parameter file.
struct FormRow {
  Form form;
  std::string_view letter;
  const char* code;
};
inline constexpr std::array<FormRow, 4> kForms{{{Form::spherical, "S", "1"},
                                                {Form::exponential, "E", "2"},
                                                {Form::gaussian, "G", "3"},
                                                {Form::power, "P", "4"}}};

/// The letter of a structure that has no form.
inline constexpr std::string_view kNoLetter = "-";

constexpr std::string_view letterOf(Form form) {
  return kForms[static_cast<std::size_t>(form)].letter;
}
constexpr const char* codeOf(Form form) { return kForms[static_cast<std::size_t>(form)].code; }
/// The form that a letter stands for; nothing for any other text.
constexpr std::optional<Form> formOf(std::string_view letter) {
  for (const FormRow& row : kForms)
    if (row.letter == letter) return row.form;
  return std::nullopt;
}

}  // namespace zevfit
