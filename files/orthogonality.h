#pragma once

#include <cstdint>

namespace zevfit {

/// Tells whether three directions are orthogonal. Azimuth and dip in degrees, the azimuth clockwise
/// from north, the dip downward positive.
class Orthogonality {
 public:
  virtual ~Orthogonality() = default;
  /// 0 when they are not. Where both minor directions have the same angles the model lies in a
  /// plane, and Main against Minor 1 decides.
  virtual std::int16_t Normal_verif(float mainAzimuth, float mainDip, float minor1Azimuth,
                                    float minor1Dip, float minor2Azimuth,
                                    float minor2Dip) const = 0;
};

/// Two directions are orthogonal within this many degrees. In a file angles are rounded to whole
/// degrees, which turns a pair by up to 1.42.
inline constexpr double kRightAngleTolerance = 1.5;

/// Tells orthogonal directions by the angles between them.
class AngleTest : public Orthogonality {
 public:
  /// 1 when each pair is within the tolerance of a right angle.
  std::int16_t Normal_verif(float mainAzimuth, float mainDip, float minor1Azimuth, float minor1Dip,
                            float minor2Azimuth, float minor2Dip) const override;
};

}  // namespace zevfit
