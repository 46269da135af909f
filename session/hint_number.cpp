#include "session/hint_number.h"

#include <cmath>
#include <limits>

#include "session/numbers.h"

namespace zevfit {

std::string hintNumber(double value, std::string_view beside) {
  const bool fits = std::abs(value) <= double{std::numeric_limits<float>::max()};
  if (!fits) return generalText(value);
  const std::string rounded = generalText(static_cast<float>(value));
  return beside.find(rounded) == beside.npos ? rounded : generalText(value);
}

}  // namespace zevfit
