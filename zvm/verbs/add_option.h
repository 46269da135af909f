#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace zevfit::verbs {

/// Puts an option, or an argument, on the app of a verb; `type` is what its help shows for a value.
struct AddOption {
  CLI::App& app;

  template <class Value>
  CLI::Option* operator()(const char* name, Value& value, const char* what,
                          const char* type) const {
    return app.add_option(name, value, what)->type_name(type);
  }
};

/// The same for an option that may be given again and again, with one value each time.
struct AddEach {
  CLI::App& app;

  CLI::Option* operator()(const char* name, std::vector<std::string>& values, const char* what,
                          const char* type) const {
    return AddOption{app}(name, values, what, type)
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  }
};

}  // namespace zevfit::verbs
