#include "session/hint_number.h"

#include <cmath>
#include <limits>

#include "session/numbers.h"

namespace zevfit {

std::string hintNumber(double value) {
  const bool fits = std::abs(value) <= double{std::numeric_limits<float>::max()};
  return fits ? generalText(static_cast<float>(value)) : generalText(value);
}

}  // namespace zevfit
