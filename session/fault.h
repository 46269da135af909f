#pragma once

#include <cmath>
#include <stdexcept>
#include <string>

namespace zevfit {

/// A statement that has no result: a subscript outside a table, a slider position outside its
/// bounds, a division by zero, an overflow, a text in place of a number. Handlers catch it by the
/// policy that they state; one that nobody catches ends the program in an orderly way.
class Fault : public std::runtime_error {
 public:
  explicit Fault(const std::string& what) : std::runtime_error(what) {}
};

/// The value itself; throws Fault when it is infinite or not a number.
inline double finite(double value) {
  if (!std::isfinite(value)) throw Fault("Overflow");
  return value;
}

/// The quotient; throws Fault for a divisor of 0 and for a quotient that is not finite.
inline double divide(double dividend, double divisor) {
  if (divisor == 0) throw Fault("Division by zero");
  return finite(dividend / divisor);
}

}  // namespace zevfit
