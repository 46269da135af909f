#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zevfit::zvm {

/// Degrees: azimuth clockwise from north, dip positive down, tolerance as a half angle. Bands in
/// the unit of the coordinates: half widths across the azimuth and across the axis and that.
struct Direction {
  std::string name;  ///< as given, such as "45;0"
  double azimuth = 0, dip = 0;
  double tolerance = 22.5;
  std::optional<double> band, vband;
};

/// The direction of a name "AZ;DIP"; nothing where it is no such name.
std::optional<Direction> directionOf(std::string_view name);

/// Lag classes 1 to `count`: class k takes distances above (k - 1) width up to k width or, with a
/// tolerance, from k width - tolerance to below k width + tolerance.
struct LagClasses {
  double width = 0;
  std::int64_t count = 0;
  std::optional<double> tolerance;

  /// Where class k lies when no pair tells it.
  double centre(std::int64_t k) const {
    return (static_cast<double>(k) - (tolerance ? 0 : 0.5)) * width;
  }
};

/// A variable with itself, or two of them, by position.
struct Pairing {
  std::size_t first = 0, second = 0;
  std::string name;  ///< Latin-1

  bool isCross() const { return first != second; }
};

/// Pairs at the same place: left out, or counted in the first class of every direction.
enum class ZeroDistances { skip, first };

/// Whose counts and classes: our own, or those of gstat or of GSLIB's gamv, quirks included.
enum class Compat { none, gstat, gamv };

/// Directions in a table of sums: gstat's crosses count a pair for each of its two steps that lies
/// in a direction, so that the same directions follow for the turned steps.
constexpr std::size_t summedDirections(Compat compat, std::size_t directions) {
  return compat == Compat::gstat ? 2 * directions : directions;
}

/// What is computed of a set of points.
struct Plan {
  std::string title;  ///< Latin-1
  LagClasses lags;
  std::vector<Direction> directions;
  std::vector<Pairing> pairings;
  ZeroDistances zero = ZeroDistances::skip;
  Compat compat = Compat::none;
};

/// Why a plan can't be carried out, as in "21 directions, and a variogram file holds 20"; nothing
/// where it can.
std::optional<std::string> planRefusal(const Plan& plan, bool inSpace);

}  // namespace zevfit::zvm
