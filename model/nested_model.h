#pragma once

#include <array>
#include <cmath>
#include <optional>

#include "session/form.h"
#include "session/line.h"
#include "session/pair.h"
#include "session/session.h"

namespace zevfit {

// The forms of a structure at distance h > 0 with sill C and range a, which for all but the
// spherical one is the practical range, where 95 % of the sill are reached (Chiles and Delfiner,
// "Geostatistics", 2nd edition, 2.5.1). Distances have the unit of the range, the result that of
// the sill.

/// C (1.5 h/a - 0.5 (h/a)^3) up to a, C beyond.
inline double spherical(double h, double sill, double range) {
  if (h > range) return sill;
  const double t = h / range;
  return sill * (1.5 * t - std::pow(t, 3) * 0.5);
}

/// C (1 - exp(-3h/a)).
inline double exponential(double h, double sill, double range) {
  return sill * (1 - std::exp((-3 * h) / range));
}

/// C (1 - exp(-3 (h/a)^2)).
inline double gaussian(double h, double sill, double range) {
  return sill * (1 - std::exp(-3 * std::pow(h / range, 2)));
}

/// h^a. The sill takes no part: this is the expression that the panel and the manual show.
inline double power(double h, double /*sill*/, double exponent) { return std::pow(h, exponent); }

struct Structure {
  Form form = Form::spherical;
  double sill = 0;   ///< without meaning for a power form
  double range = 0;  ///< above 0; of a power form the exponent
};

/// A nugget effect and up to three structures, by their lines less one.
struct NestedModel {
  double nugget = 0;
  std::array<std::optional<Structure>, 3> structures;
};

/// Ranges of 0 and below count as this one, which a drawing stores for them.
inline constexpr double kSmallestRange = 1e-05;
constexpr double raisedRange(double range) { return range > 0 ? range : kSmallestRange; }

/// The model of a pair as a drawing shows it: the lines that are on, each with a form. A structure
/// whose letter stands for no form is left out. Throws Fault for a text in place of a number and
/// for a pair outside the tables.
NestedModel modelOf(const FitTables& tables, Pair pair);

/// The sum of nugget and structures at a distance h of 0 or above; 0 at h = 0, where the nugget
/// does not count. Throws Fault where the value is not finite.
double semivariance(const NestedModel& model, double h);

}  // namespace zevfit
