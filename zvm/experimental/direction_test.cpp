#include "zvm/experimental/direction_test.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zevfit::zvm {

namespace {

constexpr double kPi = 3.14159265358979323846;
/// gstat's own, in utils.h: which of two sectors has a diagonal depends on its last digit.
constexpr double kGstatPi = 3.14159265359;
/// gamv's own, of single precision.
constexpr double kGamvPi = 3.1415927410125732;

constexpr double kNoBand = std::numeric_limits<double>::infinity();

struct Turn {
  int quarters = 0;
  double rest = 0;  ///< radians, at most an eighth of a turn
};

Turn turnOf(double degrees) {
  const double within = std::remainder(degrees, 360);
  const double quarters = std::nearbyint(within / 90);
  return {(static_cast<int>(quarters) + 4) % 4, (within - 90 * quarters) * (kPi / 180)};
}

}  // namespace

double sineOf(double degrees) {
  const Turn turn = turnOf(degrees);
  const double value = turn.quarters % 2 == 0 ? std::sin(turn.rest) : std::cos(turn.rest);
  return turn.quarters < 2 ? value : -value;
}

double cosineOf(double degrees) {
  const Turn turn = turnOf(degrees);
  const double value = turn.quarters % 2 == 0 ? std::cos(turn.rest) : std::sin(turn.rest);
  return turn.quarters == 0 || turn.quarters == 3 ? value : -value;
}

SectorTest::SectorTest(const Direction& direction)
    : acrossX(cosineOf(direction.azimuth)),
      acrossY(-sineOf(direction.azimuth)),
      band(direction.band.value_or(kNoBand)),
      isWhole(direction.tolerance >= 90) {
  const double low = direction.azimuth - direction.tolerance - kAngleEdge;
  const double high = direction.azimuth + direction.tolerance - kAngleEdge;
  sineLow = sineOf(low);
  cosineLow = cosineOf(low);
  sineHigh = sineOf(high);
  cosineHigh = cosineOf(high);
}

ConeTest::ConeTest(const Direction& direction)
    : acrossX(cosineOf(direction.azimuth)),
      acrossY(-sineOf(direction.azimuth)),
      band(direction.band.value_or(kNoBand)),
      vband(direction.vband.value_or(kNoBand)) {
  const double sineAzimuth = sineOf(direction.azimuth), cosineAzimuth = cosineOf(direction.azimuth);
  const double sineDip = sineOf(direction.dip), cosineDip = cosineOf(direction.dip);
  axisX = sineAzimuth * cosineDip;
  axisY = cosineAzimuth * cosineDip;
  axisZ = -sineDip;
  upX = sineAzimuth * sineDip;
  upY = cosineAzimuth * sineDip;
  upZ = cosineDip;
  const double edge = direction.tolerance + kAngleEdge;
  isWhole = edge >= 90;
  const double tangent = isWhole ? 0 : sineOf(edge) / cosineOf(edge);
  tangent2 = tangent * tangent;
}

GstatTest::GstatTest(const Direction& direction)
    : sineAzimuth(std::sin(direction.azimuth * kGstatPi / 180.0)),
      cosineAzimuth(std::cos(direction.azimuth * kGstatPi / 180.0)),
      // Its dip is positive up, ours down.
      sineDip(std::sin(-direction.dip * kGstatPi / 180.0)),
      cosineDip(std::cos(-direction.dip * kGstatPi / 180.0)),
      cosineTolerance(std::cos(direction.tolerance * kGstatPi / 180.0)),
      isWhole(direction.tolerance >= 90) {}

bool GstatTest::holds(double dx, double dy, double dz) const {
  if (isWhole) return true;
  const double flat = std::sqrt(dx * dx + dy * dy);
  if (flat > 0) {
    const double inner = (dx * sineAzimuth + dy * cosineAzimuth) / flat;
    if (std::fabs(inner) < cosineTolerance) return false;
  }
  const double whole = std::sqrt(dx * dx + dy * dy + dz * dz);
  if (whole <= 0) return true;
  const double inner = (flat * cosineDip + dz * sineDip) / whole;
  return std::fabs(inner) >= cosineTolerance;
}

GamvTest::GamvTest(const Direction& direction)
    : azimuthX(std::cos((90.0 - direction.azimuth) * kGamvPi / 180.0)),
      azimuthY(std::sin((90.0 - direction.azimuth) * kGamvPi / 180.0)),
      // Its dip is negative down, ours positive.
      sineDip(std::cos((90.0 + direction.dip) * kGamvPi / 180.0)),
      cosineDip(std::sin((90.0 + direction.dip) * kGamvPi / 180.0)),
      cosineTolerance(std::cos(direction.tolerance * kGamvPi / 180.0)),
      band(direction.band.value_or(kNoBand)),
      vband(direction.vband.value_or(kNoBand)) {}

bool GamvTest::holds(double dx, double dy, double dz) const {
  constexpr double kZero = 1e-20;
  double flat = std::sqrt(std::max(dx * dx + dy * dy, 0.0));
  const double azimuth = flat < kZero ? 1.0 : (dx * azimuthX + dy * azimuthY) / flat;
  if (std::fabs(azimuth) < cosineTolerance) return false;
  if (std::fabs(azimuthX * dy - azimuthY * dx) > band) return false;
  if (azimuth < 0) flat = -flat;
  const double whole = std::sqrt(dx * dx + dy * dy + dz * dz);
  const double dip = whole <= kZero ? 0 : (flat * cosineDip + dz * sineDip) / whole;
  if (whole > kZero && std::fabs(dip) < cosineTolerance) return false;
  return std::fabs(cosineDip * dz - sineDip * flat) <= vband;
}

}  // namespace zevfit::zvm
