#pragma once

#include <cstdio>
#include <cstdlib>

namespace zevfit {

/// Ends the run, which reports the input, where a property does not hold.
inline void require(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", property);
  std::abort();
}

}  // namespace zevfit
