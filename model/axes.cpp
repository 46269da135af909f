#include "model/axes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "model/axis_fields.h"
#include "session/number_reading.h"
#include "session/policy.h"

namespace zevfit {
namespace {

constexpr double kRadians = std::numbers::pi / 180;
/// What the vectors of whole degrees leave as rounding; far below what a curve shows.
constexpr double kRounding = 1e12;
/// Two coordinates so small have no angle of their own.
constexpr double kNoLength = 1e-12;

/// In degrees, without the rounding and without a minus in front of 0.
double rounded(double radians) {
  return std::round(radians / kRadians * kRounding) / kRounding + 0.0;
}

double angleOf(double y, double x) { return std::hypot(x, y) < kNoLength ? 0 : std::atan2(y, x); }

Vector scaled(const Vector& v, double factor) {
  return {v.east * factor, v.north * factor, v.up * factor};
}

Vector unit(const Vector& v) { return scaled(v, 1 / std::sqrt(dot(v, v))); }

Axes withThird(const Vector& first, const Vector& second) {
  return {first, second, cross(first, second)};
}

Ellipsoid descendingInPlane(const Ellipsoid& from) {
  const auto& [first, second, third] = from.axes;
  if (from.ranges[0] >= from.ranges[1])
    return {from.axes, {from.ranges[0], from.ranges[1], from.ranges[1]}};
  return {withThird(second, scaled(first, -1)), {from.ranges[1], from.ranges[0], from.ranges[0]}};
}

}  // namespace

double dot(const Vector& a, const Vector& b) {
  return a.east * b.east + a.north * b.north + a.up * b.up;
}

Vector cross(const Vector& a, const Vector& b) {
  return {a.north * b.up - a.up * b.north, a.up * b.east - a.east * b.up,
          a.east * b.north - a.north * b.east};
}

Vector unitVector(const Direction& direction) {
  const double azimuth = direction.azimuth * kRadians, dip = direction.dip * kRadians;
  return {std::sin(azimuth) * std::cos(dip), std::cos(azimuth) * std::cos(dip), -std::sin(dip)};
}

std::optional<Direction> directionNamed(std::string_view name) {
  return attempt(
      [&]() -> std::optional<Direction> {
        const DirectionAngles angles = directionAngles(name);
        return Direction{leadingNumber(angles.azimuth), leadingNumber(angles.dip)};
      },
      []() -> std::optional<Direction> { return std::nullopt; });
}

Axes rightAngled(const Direction& main, const Direction& minor1) {
  const Vector first = unitVector(main), named = unitVector(minor1);
  const Vector along = scaled(first, dot(first, named));
  return withThird(first,
                   unit({named.east - along.east, named.north - along.north, named.up - along.up}));
}

Angles anglesOf(const Axes& axes) {
  const Vector& main = axes[0];
  const double azimuth = angleOf(main.east, main.north);
  const double dip = std::atan2(-main.up, std::hypot(main.east, main.north));
  // At right angles to Main: level, and upright below it.
  const Vector level{-std::cos(azimuth), std::sin(azimuth), 0};
  const Vector upright{std::sin(dip) * std::sin(azimuth), std::sin(dip) * std::cos(azimuth),
                       std::cos(dip)};
  double rotation = rounded(std::atan2(dot(axes[1], upright), dot(axes[1], level)));
  if (rotation > 90) rotation -= 180;
  if (rotation <= -90) rotation += 180;
  const double turned = rounded(azimuth);
  return {turned < 0 ? rounded((turned + 360) * kRadians) : turned, rounded(dip), rotation};
}

Turns turnsOf(const Axes& axes) {
  const auto& [e1, e2, e3] = axes;
  const double yaw = angleOf(-e2.east, e1.east);
  const double pitch = std::atan2(e3.east, std::hypot(e1.east, e2.east));
  // What is left after the other two, so that it makes up for a yaw that is hardly told.
  const double s = std::sin(yaw), c = std::cos(yaw);
  const double roll = std::atan2(e1.up * s + e2.up * c, e1.north * s + e2.north * c);
  return {rounded(yaw), rounded(pitch), rounded(roll)};
}

Ellipsoid descending(const Ellipsoid& ellipsoid, bool plane) {
  if (plane) return descendingInPlane(ellipsoid);
  std::array<std::size_t, 3> order{0, 1, 2};
  std::ranges::stable_sort(order, std::ranges::greater{},
                           [&](std::size_t at) { return ellipsoid.ranges.at(at); });
  const auto& [first, second, third] = order;
  if (order == std::array<std::size_t, 3>{0, 1, 2}) return ellipsoid;
  return {withThird(ellipsoid.axes.at(first), ellipsoid.axes.at(second)),
          {ellipsoid.ranges.at(first), ellipsoid.ranges.at(second), ellipsoid.ranges.at(third)}};
}

}  // namespace zevfit
