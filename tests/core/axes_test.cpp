#include "model/axes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <ostream>
#include <vector>

namespace zevfit {
namespace {

constexpr double kClose = 1e-14;

void expectVector(const Vector& v, double east, double north, double up) {
  EXPECT_NEAR(v.east, east, kClose);
  EXPECT_NEAR(v.north, north, kClose);
  EXPECT_NEAR(v.up, up, kClose);
}

TEST(Axes, HaveTheAzimuthFromNorthAndTheDipDownward) {
  const double half = std::sqrt(0.5);
  expectVector(unitVector({0, 0}), 0, 1, 0);
  expectVector(unitVector({90, 0}), 1, 0, 0);
  expectVector(unitVector({45, 0}), half, half, 0);
  expectVector(unitVector({0, 90}), 0, 0, -1);
  expectVector(unitVector({180, -45}), 0, -half, half);
}

TEST(Axes, KeepMainAndTurnMinor1) {
  const Axes axes = rightAngled({45, 0}, {134, 0});
  const double half = std::sqrt(0.5);
  expectVector(axes[0], half, half, 0);
  expectVector(axes[1], half, -half, 0);
  expectVector(axes[2], 0, 0, -1);
}

TEST(Axes, OfADippingPairAreARightAngledTriad) {
  const Axes axes = rightAngled({40, 31}, {131, 1});
  const Vector main = unitVector({40, 31});
  expectVector(axes[0], main.east, main.north, main.up);
  for (const auto& [a, b] : {std::pair{0U, 1U}, {0U, 2U}, {1U, 2U}})
    EXPECT_NEAR(dot(axes.at(a), axes.at(b)), 0, kClose);
  for (const Vector& axis : axes) EXPECT_NEAR(dot(axis, axis), 1, kClose);
  EXPECT_NEAR(dot(cross(axes[0], axes[1]), axes[2]), 1, kClose);
  // The projection turns it by no more than the pair lacks of a right angle.
  EXPECT_GT(dot(axes[1], unitVector({131, 1})), std::cos(1.5 * std::numbers::pi / 180));
}

struct AngleRow {
  Direction main, minor1;
  Angles expected;
};
void PrintTo(const AngleRow& row, std::ostream* out) {
  *out << row.main.azimuth << ';' << row.main.dip << " and " << row.minor1.azimuth << ';'
       << row.minor1.dip;
}

class AnglesOf : public testing::TestWithParam<AngleRow> {};

TEST_P(AnglesOf, AreThose) {
  const AngleRow& row = GetParam();
  const Angles angles = anglesOf(rightAngled(row.main, row.minor1));
  EXPECT_EQ(angles.azimuth, row.expected.azimuth);
  EXPECT_EQ(angles.dip, row.expected.dip);
  EXPECT_EQ(angles.rotation, row.expected.rotation);
}

// An axis and its opposite are one, so that both sides of Main have the rotation 0.
INSTANTIATE_TEST_SUITE_P(
    Triads, AnglesOf,
    testing::Values(
        AngleRow{{45, 0}, {135, 0}, {45, 0, 0}}, AngleRow{{45, 0}, {-45, 0}, {45, 0, 0}},
        AngleRow{{-45, 30}, {45, 0}, {315, 30, 0}}, AngleRow{{0, 0}, {0, 90}, {0, 0, 90}},
        AngleRow{{0, 0}, {0, -90}, {0, 0, 90}}, AngleRow{{40, 30}, {40, -60}, {40, 30, 90}},
        // Straight down there is no azimuth; Minor 1 to the west of it is a turn of 0,
        // to the north one of 90.
        AngleRow{{0, 90}, {270, 0}, {0, 90, 0}}, AngleRow{{0, 90}, {0, 0}, {0, 90, 90}},
        // Halfway below the horizontal: at the left of Main, and at its right.
        AngleRow{{0, 0}, {270, 45}, {0, 0, -45}}, AngleRow{{0, 0}, {90, 45}, {0, 0, 45}},
        AngleRow{{360, 0}, {90, 0}, {0, 0, 0}}, AngleRow{{0, 120}, {90, 0}, {180, 60, 0}}));

// The example of azimuth 30, dip 20 and rotation 15.
TEST(Turns, AreNotTheOtherAngles) {
  const double radians = std::numbers::pi / 180;
  const double a = 60 * radians, b = 20 * radians, t = 15 * radians;
  const Vector main = unitVector({30, 20});
  const Vector minor1{-std::cos(t) * std::sin(a) + std::sin(t) * std::sin(b) * std::cos(a),
                      std::cos(t) * std::cos(a) + std::sin(t) * std::sin(b) * std::sin(a),
                      std::sin(t) * std::cos(b)};
  const Axes axes{main, minor1, cross(main, minor1)};
  const Angles angles = anglesOf(axes);
  EXPECT_NEAR(angles.azimuth, 30, 1e-11);
  EXPECT_NEAR(angles.dip, 20, 1e-11);
  EXPECT_NEAR(angles.rotation, 15, 1e-11);
  const Turns turns = turnsOf(axes);
  EXPECT_NEAR(turns.yaw, 59.330, 5e-4);
  EXPECT_NEAR(turns.pitch, 22.913, 5e-4);
  EXPECT_NEAR(turns.roll, -9.795, 5e-4);
}

// Rx(roll) Ry(pitch) Rz(yaw) has the axes as its columns, also where the pitch is upright.
TEST(Turns, GiveBackTheAxes) {
  const std::vector<std::pair<Direction, Direction>> pairs{
      {{0, 0}, {0, 90}},    {{0, 0}, {90, 0}},          {{0, 90}, {30, 0}},
      {{45, 0}, {45, -90}}, {{0, 0.001}, {0, -89.999}}, {{212, -35}, {302, 0}}};
  for (const auto& [main, minor1] : pairs) {
    const Axes axes = rightAngled(main, minor1);
    const Turns turns = turnsOf(axes);
    const double radians = std::numbers::pi / 180;
    const double y = turns.yaw * radians, p = turns.pitch * radians, r = turns.roll * radians;
    const double cy = std::cos(y), sy = std::sin(y), cp = std::cos(p), sp = std::sin(p);
    const double cr = std::cos(r), sr = std::sin(r);
    expectVector(axes[0], cp * cy, cr * sy + sr * sp * cy, sr * sy - cr * sp * cy);
    expectVector(axes[1], -cp * sy, cr * cy - sr * sp * sy, sr * cy + cr * sp * sy);
    expectVector(axes[2], sp, -sr * cp, cr * cp);
  }
}

TEST(Descending, ExchangesTheAxesOfAPlane) {
  const Axes axes = rightAngled({45, 0}, {135, 0});
  const Ellipsoid kept = descending({axes, {1000, 400, 400}}, true);
  EXPECT_EQ(kept.ranges, (std::array<double, 3>{1000, 400, 400}));
  EXPECT_EQ(anglesOf(kept.axes).azimuth, 45);
  const Ellipsoid turned = descending({axes, {400, 1000, 1000}}, true);
  EXPECT_EQ(turned.ranges, (std::array<double, 3>{1000, 400, 400}));
  EXPECT_EQ(anglesOf(turned.axes).azimuth, 135);
  EXPECT_EQ(anglesOf(turned.axes).rotation, 0);
}

TEST(Descending, OrdersTheAxesInSpace) {
  const Axes axes = rightAngled({0, 0}, {90, 0});
  const Ellipsoid turned = descending({axes, {10, 20, 30}}, false);
  EXPECT_EQ(turned.ranges, (std::array<double, 3>{30, 20, 10}));
  expectVector(turned.axes[0], 0, 0, -1);
  expectVector(turned.axes[1], 1, 0, 0);
  EXPECT_NEAR(dot(cross(turned.axes[0], turned.axes[1]), turned.axes[2]), 1, kClose);
}

}  // namespace
}  // namespace zevfit
