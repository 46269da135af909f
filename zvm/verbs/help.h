#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace zevfit::verbs {

/// What `--help` of a verb prints, in lines for a terminal of 80 columns.
class Help : public CLI::Formatter {
 public:
  Help();
  /// The names of arguments tell by themselves that there may be several.
  std::string make_option_usage(const CLI::Option* option) const override;
  std::string make_option_opts(const CLI::Option* option) const override;
  std::string make_option_desc(const CLI::Option* option) const override;
};

}  // namespace zevfit::verbs
