#pragma once

#include <string>
#include <string_view>

namespace zevfit {

/// The warning of a text that is no number, or one beyond all numbers, where `what` belongs.
inline std::string illegalValue(std::string_view what, std::string_view text) {
  return "Illegal value for " + std::string(what) + ": " + std::string(text) + "!";
}

}  // namespace zevfit
