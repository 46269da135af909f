#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zevfit::checking {

/// The two variables that a cross variable is of, as subscripts from 1 in a list of names.
struct CrossOf {
  std::int64_t first = 0, second = 0;
  bool isCross() const { return first > 0; }
};

/// A name A-B, where A and B are two other names of the list, is that of their cross variable;
/// zeros for any other. Outer blanks of names do not count; the first hyphen that fits parts the
/// two.
CrossOf crossOf(std::string_view name, const std::vector<std::string>& names);

}  // namespace zevfit::checking
