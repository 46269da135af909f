#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace zevfit {

// Axes of anisotropy as vectors, and the angles by which other systems name them. All angles are in
// degrees; azimuths go clockwise from north, dips are positive downward.

struct Vector {
  double east = 0, north = 0, up = 0;
};
double dot(const Vector& a, const Vector& b);
Vector cross(const Vector& a, const Vector& b);

struct Direction {
  double azimuth = 0, dip = 0;
};
Vector unitVector(const Direction& direction);
/// What the outer words of a direction's name tell; nothing for a name that can't be split.
std::optional<Direction> directionNamed(std::string_view name);

/// Main, Minor 1 and Minor 2: unit vectors at right angles, Minor 2 the cross product of the
/// others.
using Axes = std::array<Vector, 3>;

/// The axes of two directions whose names are rounded: Main as it is, Minor 1 projected at right
/// angles to it. Of two parallel directions there is no Minor 1: the axes then hold what is no
/// number.
Axes rightAngled(const Direction& main, const Direction& minor1);

/// Azimuth and dip of Main, and the turn of Minor 1 about it, from the horizontal at the left of
/// Main upward. Azimuth from 0 to below 360, dip from -90 to 90, rotation above -90 up to 90: an
/// axis and its opposite are one.
struct Angles {
  double azimuth = 0, dip = 0, rotation = 0;
};
Angles anglesOf(const Axes& axes);

/// The turns about the third, second and first coordinate whose product Rx(roll) Ry(pitch) Rz(yaw)
/// has the axes as its columns.
struct Turns {
  double yaw = 0, pitch = 0, roll = 0;
};
Turns turnsOf(const Axes& axes);

/// Axes with the ranges along them.
struct Ellipsoid {
  Axes axes{};
  std::array<double, 3> ranges{};
};
/// The same ellipsoid by descending ranges. In a plane the first two axes change places at most,
/// and the third has the range of the second.
Ellipsoid descending(const Ellipsoid& ellipsoid, bool plane);

}  // namespace zevfit
