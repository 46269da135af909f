#include "files/orthogonality.h"

#include <cmath>
#include <numbers>

namespace zevfit {

namespace {

constexpr double kRadians = std::numbers::pi / 180;
/// Angles of the very tolerance are inside, whatever the rounding.
constexpr double kRounding = 1e-9;

struct Vector {
  double east, north, up;
};

Vector unitVector(float azimuth, float dip) {
  const double across = std::cos(dip * kRadians);
  return {across * std::sin(azimuth * kRadians), across * std::cos(azimuth * kRadians),
          -std::sin(dip * kRadians)};
}

bool rightAngled(const Vector& a, const Vector& b) {
  const double cosine = a.east * b.east + a.north * b.north + a.up * b.up;
  return std::abs(cosine) <= std::sin(kRightAngleTolerance * kRadians) + kRounding;
}

}  // namespace

std::int16_t AngleTest::Normal_verif(float mainAzimuth, float mainDip, float minor1Azimuth,
                                     float minor1Dip, float minor2Azimuth, float minor2Dip) const {
  const Vector main = unitVector(mainAzimuth, mainDip);
  const Vector minor1 = unitVector(minor1Azimuth, minor1Dip);
  if (!rightAngled(main, minor1)) return 0;
  // In a plane there is no third direction.
  if (minor1Azimuth == minor2Azimuth && minor1Dip == minor2Dip) return 1;
  const Vector minor2 = unitVector(minor2Azimuth, minor2Dip);
  return rightAngled(main, minor2) && rightAngled(minor1, minor2) ? 1 : 0;
}

}  // namespace zevfit
