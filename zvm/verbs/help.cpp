#include "zvm/verbs/help.h"

#include <cstddef>
#include <sstream>

namespace zevfit::verbs {
namespace {

constexpr std::size_t kWidth = 80, kNameWidth = 30;

/// A line in as many lines as it takes.
std::string wrapped(const std::string& line, std::size_t width) {
  std::string text;
  std::size_t used = 0;
  std::istringstream words(line);
  for (std::string word; words >> word;) {
    const bool fits = used + 1 + word.size() <= width;
    if (used > 0) text += fits ? ' ' : '\n';
    used = used > 0 && fits ? used + 1 + word.size() : word.size();
    text += word;
  }
  return text;
}

}  // namespace

Help::Help() {
  column_width(kNameWidth);
  label("OPTIONS", "options");
  label("Positionals", "Arguments");
}

std::string Help::make_option_usage(const CLI::Option* option) const {
  const std::string name = make_option_name(option, true);
  return option->get_required() ? name : '[' + name + ']';
}

std::string Help::make_option_opts(const CLI::Option* option) const {
  const std::string type = option->get_type_name();
  const std::string shown = option->get_type_size() == 0 || type.empty() ? "" : ' ' + type;
  return shown + (option->get_required() ? ' ' + get_label("REQUIRED") : "");
}

std::string Help::make_option_desc(const CLI::Option* option) const {
  std::string text;
  std::istringstream lines(option->get_description());
  for (std::string line; std::getline(lines, line);)
    text += (text.empty() ? "" : "\n") + wrapped(line, kWidth - kNameWidth);
  return text;
}

}  // namespace zevfit::verbs
