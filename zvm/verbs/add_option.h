#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "zvm/verbs/option_values.h"

namespace zevfit::verbs {

/// Puts an option, or an argument, on the app of a verb; `type` is what its help shows for a value.
struct AddOption {
  CLI::App& app;

  /// The library's own reading takes "010" for eight, "-5" for a great number, and nothing for 0.
  template <class Value>
  CLI::Option* operator()(const char* name, Value& value, const char* what,
                          const char* type) const {
    const std::string names(name), kind(type);
    const std::string shown = names.substr(names.find(',') + 1);
    const auto take = [&value, shown, kind](const std::string& text) {
      takeValue(value, text, shown, kind);
    };
    return app.add_option_function<std::string>(names, take, what)->type_name(kind);
  }
};

/// The same for an option that may be given again and again, with one value each time, none of
/// them empty.
struct AddEach {
  CLI::App& app;

  CLI::Option* operator()(const char* name, std::vector<std::string>& values, const char* what,
                          const char* type) const {
    const std::string shown(name), kind(type);
    return app.add_option(name, values, what)
        ->type_name(type)
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->each([shown, kind](const std::string& text) { requireText(text, shown, kind); });
  }
};

}  // namespace zevfit::verbs
