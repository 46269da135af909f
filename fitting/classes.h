#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "model/axes.h"
#include "session/session.h"

namespace zevfit::fitting {

/// An experimental lag class that counts in a fit.
struct LagClass {
  double distance = 0;      ///< above 0, in units of the file
  double semivariance = 0;  ///< of a cross variable of either sign
  double pairs = 0;         ///< above 0
};
using Classes = std::vector<LagClass>;

/// The classes of a direction, and where it points; no angles where its name tells none.
struct DirectionClasses {
  std::optional<Direction> direction;
  Classes classes;
};

/// The classes of a pair that have pairs, a distance above 0 and finite numbers, by their order in
/// the file, of which `nclass` count. Throws Fault for a distance that is a text, and for a pair
/// outside the tables.
Classes classesOf(const FileTables& data, Pair pair);

/// The same of all directions of a variable.
std::vector<DirectionClasses> directionsOf(const FileTables& data, std::int64_t variable);

}  // namespace zevfit::fitting
