#pragma once

#include "zvm/experimental/plan.h"

namespace zevfit::zvm {

/// Sine and cosine of an angle in degrees: exact at multiples of 90, and the same digits for angles
/// that a turn by 90 brings to each other.
double sineOf(double degrees);
double cosineOf(double degrees);

/// How far the edges of sectors lie below, and those of cones outside, their angles, in degrees.
inline constexpr double kAngleEdge = 1e-9;

/// Whether the step between two points lies in a direction of the plane: azimuth - tolerance <
/// angle <= azimuth + tolerance modulo 180, both edges lowered by kAngleEdge, and within the band.
struct SectorTest {
  double sineLow = 0, cosineLow = 0, sineHigh = 0, cosineHigh = 0;
  double acrossX = 0, acrossY = 0;  ///< the unit vector at right angles to the azimuth
  double band = 0;
  bool isWhole = false;  ///< a tolerance of 90 takes all angles

  explicit SectorTest(const Direction& direction);

  /// Unless the tolerance takes all angles.
  bool hasAngle(double dx, double dy) const {
    const double low = dx * cosineLow - dy * sineLow;
    const double high = dx * cosineHigh - dy * sineHigh;
    // Turned by 180 degrees where that brings it above the lower edge.
    const double turned = low < 0 ? -high : high;
    return (turned <= 0) & (low != 0);
  }
  bool isInBand(double dx, double dy) const {
    const double across = dx * acrossX + dy * acrossY;
    return (across <= band) & (-across <= band);
  }
};

/// Whether a step lies in a direction of space: the angle to the axis is at most the tolerance +
/// kAngleEdge, and the step is within both bands.
struct ConeTest {
  double axisX = 0, axisY = 0, axisZ = 0;
  double acrossX = 0, acrossY = 0;   ///< horizontal, at right angles to the azimuth
  double upX = 0, upY = 0, upZ = 0;  ///< at right angles to both
  double tangent2 = 0;               ///< of the tolerance, squared
  double band = 0, vband = 0;
  bool isWhole = false;

  explicit ConeTest(const Direction& direction);

  bool holds(double dx, double dy, double dz) const {
    const double along = dx * axisX + dy * axisY + dz * axisZ;
    const double across = dx * acrossX + dy * acrossY;
    const double up = dx * upX + dy * upY + dz * upZ;
    const bool inside = isWhole | (across * across + up * up <= along * along * tangent2);
    return inside & (across <= band) & (-across <= band) & (up <= vband) & (-up <= vband);
  }
};

/// Directions as gstat tests them (direct.c, valid_direction): the horizontal angle and that in the
/// vertical plane each by itself, with the horizontal part of the step unsigned, so that the dip
/// depends on the order of the rows. Of two variables it takes both steps of a pair.
struct GstatTest {
  double sineAzimuth = 0, cosineAzimuth = 0, sineDip = 0, cosineDip = 0;
  double cosineTolerance = 0;
  bool isWhole = false;

  explicit GstatTest(const Direction& direction);
  /// The step from the earlier to the later row.
  bool holds(double dx, double dy, double dz) const;
};

/// Directions as GSLIB's gamv tests them: azimuth and dip each by itself, with the tolerance for
/// both, and two bands.
struct GamvTest {
  double azimuthX = 0, azimuthY = 0, sineDip = 0, cosineDip = 0;
  double cosineTolerance = 0;
  double band = 0, vband = 0;

  explicit GamvTest(const Direction& direction);
  /// The step from the earlier to the later row.
  bool holds(double dx, double dy, double dz) const;
};

}  // namespace zevfit::zvm
