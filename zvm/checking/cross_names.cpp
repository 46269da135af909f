#include "zvm/checking/cross_names.h"

#include <algorithm>

#include "session/numbers.h"

namespace zevfit::checking {
namespace {

/// From 1; 0 where no name is this one.
std::int64_t subscriptOf(std::string_view name, const std::vector<std::string>& names) {
  const auto same = [&](const std::string& other) { return trimmed(other) == trimmed(name); };
  const auto found = std::ranges::find_if(names, same);
  return found == names.end() ? 0 : found - names.begin() + 1;
}

}  // namespace

CrossOf crossOf(std::string_view name, const std::vector<std::string>& names) {
  for (std::size_t at = name.find('-'); at != name.npos; at = name.find('-', at + 1)) {
    const std::int64_t first = subscriptOf(name.substr(0, at), names);
    const std::int64_t second = first > 0 ? subscriptOf(name.substr(at + 1), names) : 0;
    if (second > 0 && second != first) return {first, second};
  }
  return {};
}

}  // namespace zevfit::checking
