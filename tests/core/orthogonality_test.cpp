// Orthogonal directions: angles worked out by hand, and properties over random rotations.
#include "files/orthogonality.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <string>

namespace zevfit {
namespace {

constexpr double kDegrees = 180 / std::numbers::pi;
constexpr int kRotations = 20'000;

struct Row {
  const char* what;
  std::array<float, 6> angles;  ///< azimuth and dip of Main, Minor 1, Minor 2
  bool orthogonal;
};

const Row kRows[] = {
    {"north, east, down", {0, 0, 90, 0, 0, 90}, true},
    {"north, west, up", {0, 0, 270, 0, 0, -90}, true},
    {"a vertical direction has any azimuth", {45, 0, 135, 0, 77, 90}, true},
    {"azimuths of either sign", {-45, 0, 45, 0, 400, 90}, true},
    {"plunging: 30;45 and 30;-45 in one vertical plane", {30, 45, 120, 0, 30, -45}, true},
    {"both plunging down are no right angle to the third", {30, 45, 120, 10, 30, -45}, false},
    {"the dip is downward for both", {0, 45, 90, 0, 180, 45}, true},
    {"in a plane", {45, 0, 135, 0, 135, 0}, true},
    {"in a plane, 2 degrees off", {45, 0, 137, 0, 137, 0}, false},
    {"the same direction three times", {45, 0, 45, 0, 45, 0}, false},
    {"all zero", {0, 0, 0, 0, 0, 0}, false},
    {"Main and Minor 2 the same", {45, 0, 135, 0, 45, 0}, false},
    {"the minors the same line, told by other angles", {45, 0, 135, 0, 315, 0}, false},
    {"Main and Minor 1 at 91.5", {0, 0, 91.5, 0, 0, 90}, true},
    {"Main and Minor 1 at 88.5", {0, 0, 88.5, 0, 0, 90}, true},
    {"Main and Minor 1 at 91.51", {0, 0, 91.51F, 0, 0, 90}, false},
    {"Main and Minor 2 at 88.5", {0, 0, 90, 0, 0, 88.5}, true},
    {"Main and Minor 2 at 88.49", {0, 0, 90, 0, 0, 88.49F}, false},
    {"the minors at 88.5", {0, 0, 90, 0, 90, 88.5}, true},
    {"the minors at 88.49", {0, 0, 90, 0, 90, 88.49F}, false},
};

bool orthogonal(const std::array<float, 6>& a) {
  return AngleTest().Normal_verif(a[0], a[1], a[2], a[3], a[4], a[5]) != 0;
}

TEST(Orthogonality, OfDirectionsByTheirAngles) {
  for (const Row& row : kRows) EXPECT_EQ(orthogonal(row.angles), row.orthogonal) << row.what;
}

TEST(Orthogonality, AnswersOneOrNought) {
  EXPECT_EQ(AngleTest().Normal_verif(0, 0, 90, 0, 0, 90), 1);
  EXPECT_EQ(AngleTest().Normal_verif(0, 0, 0, 0, 0, 90), 0);
}

// The largest angles that there are have a sine and a cosine like all others.
TEST(Orthogonality, OfTheLargestAnglesHasAnAnswer) {
  constexpr float most = std::numeric_limits<float>::max();
  EXPECT_FALSE(orthogonal({most, most, most, most, most, most}));
}

using Vector = std::array<double, 3>;  ///< east, north, up
using Frame = std::array<Vector, 3>;

/// Three orthogonal directions, turned at random: the columns of the rotation of a random
/// quaternion.
Frame randomFrame(std::mt19937& random) {
  std::normal_distribution<double> part;
  double w = part(random), x = part(random), y = part(random), z = part(random);
  const double length = std::sqrt(w * w + x * x + y * y + z * z);
  for (double* each : {&w, &x, &y, &z}) *each /= length;
  return {{{1 - 2 * (y * y + z * z), 2 * (x * y + w * z), 2 * (x * z - w * y)},
           {2 * (x * y - w * z), 1 - 2 * (x * x + z * z), 2 * (y * z + w * x)},
           {2 * (x * z + w * y), 2 * (y * z - w * x), 1 - 2 * (x * x + y * y)}}};
}

std::array<float, 6> anglesOf(const Frame& frame, bool whole) {
  std::array<float, 6> angles{};
  for (std::size_t i = 0; i < frame.size(); ++i) {
    const auto& [east, north, up] = frame.at(i);
    const double azimuth = std::atan2(east, north) * kDegrees;
    const double dip = std::asin(std::clamp(-up, -1.0, 1.0)) * kDegrees;
    angles.at(2 * i) = static_cast<float>(whole ? std::round(azimuth) : azimuth);
    angles.at(2 * i + 1) = static_cast<float>(whole ? std::round(dip) : dip);
  }
  return angles;
}

/// Turns direction `which` of a frame towards another within their plane.
void tilt(Frame& frame, std::size_t which, std::size_t towards, double degrees) {
  const double c = std::cos(degrees / kDegrees), s = std::sin(degrees / kDegrees);
  for (std::size_t i = 0; i < 3; ++i)
    frame.at(which).at(i) = c * frame.at(which).at(i) + s * frame.at(towards).at(i);
}

std::string told(const std::array<float, 6>& angles) {
  std::string text;
  for (const float angle : angles) text += std::to_string(angle) + " ";
  return text;
}

TEST(Orthogonality, OfRandomRotationsStandsRoundingToWholeDegrees) {
  std::mt19937 random(4);  // the same rotations in every run
  for (int i = 0; i < kRotations; ++i) {
    const auto angles = anglesOf(randomFrame(random), true);
    ASSERT_TRUE(orthogonal(angles)) << told(angles);
  }
}

TEST(Orthogonality, OfRandomRotationsHoldsWhereOnePairIsOneDegreeOff) {
  std::mt19937 random(5);  // the same rotations in every run
  for (int i = 0; i < kRotations; ++i) {
    Frame frame = randomFrame(random);
    tilt(frame, 1, 0, 1);
    const auto angles = anglesOf(frame, false);
    ASSERT_TRUE(orthogonal(angles)) << told(angles);
  }
}

TEST(Orthogonality, OfRandomRotationsIsRefusedWhereOnePairIsTwoDegreesOff) {
  std::mt19937 random(6);  // the same rotations in every run
  constexpr std::array<std::pair<std::size_t, std::size_t>, 3> pairs{{{1, 0}, {2, 0}, {2, 1}}};
  for (int i = 0; i < kRotations; ++i) {
    for (const auto& [which, towards] : pairs) {
      for (const double degrees : {-2.0, 2.0}) {
        Frame frame = randomFrame(random);
        tilt(frame, which, towards, degrees);
        const auto angles = anglesOf(frame, false);
        ASSERT_FALSE(orthogonal(angles)) << told(angles);
      }
    }
  }
}

}  // namespace
}  // namespace zevfit
