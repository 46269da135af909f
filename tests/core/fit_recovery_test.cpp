// Models simulated with known parameters and the noise of their pairs, over many cases.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "fitting/fit.h"
#include "tests/support/lag_classes.h"

namespace zevfit::fitting {
namespace {

constexpr int kCases = 500, kEllipseCases = 60;
constexpr std::array kThree{Form::spherical, Form::exponential, Form::gaussian};

/// How far off parameters are, over the cases.
struct Errors {
  std::vector<double> all;

  void add(double error) { all.push_back(std::abs(error)); }
  /// So many percent of the cases are within the value.
  double within(std::size_t percent) {
    std::ranges::sort(all);
    return all.at(std::min(all.size() - 1, all.size() * percent / 100));
  }
};

// Classes of 2,000 to 8,000 pairs, a noise of 1.6 to 3.2 percent.
TEST(Recovery, OfOneStructureIsWithinItsBands) {
  test::Noise noise(7);
  Errors range, total, nugget;
  for (int trial = 0; trial < kCases; ++trial) {
    const Form form = kThree.at(static_cast<std::size_t>(trial) % kThree.size());
    const double sill = noise.uniform(0.5, 0.9), length = noise.uniform(300, 900);
    const NestedModel model = test::nested(1 - sill, {{form, sill, length}});
    Classes classes = test::classesOf(model, 15, 100, 1, noise.uniform(2000, 8000));
    test::addNoise(classes, noise);
    Options options;
    options.forms = {form};
    options.structures = 1;
    const Result result = startModel(classes, options);
    ASSERT_TRUE(result.isOffered()) << result.refusal;
    const NestedModel& found = result.choice().model;
    range.add(found.structures[0]->range / length - 1);
    total.add(found.nugget + found.structures[0]->sill - 1);
    nugget.add(found.nugget - (1 - sill));
  }
  EXPECT_LT(range.within(50), 0.03);
  EXPECT_LT(range.within(95), 0.18);
  EXPECT_LT(range.within(100), 0.35);
  EXPECT_LT(total.within(95), 0.03);
  EXPECT_LT(total.within(100), 0.06);
  EXPECT_LT(nugget.within(95), 0.05);
  EXPECT_LT(nugget.within(100), 0.2);
}

std::vector<DirectionClasses> directions(const NestedModel& model, double azimuth, double ratio,
                                         test::Noise& noise) {
  std::vector<DirectionClasses> all;
  for (int d = 0; d < 4; ++d) {
    const double turn = (45.0 * d - azimuth) * std::numbers::pi / 180;
    const double scale = std::hypot(std::cos(turn), std::sin(turn) / ratio);
    all.push_back({Direction{45.0 * d, 0}, test::classesOf(model, 15, 100, scale, 4000)});
    test::addNoise(all.back().classes, noise);
  }
  return all;
}

TEST(Recovery, OfAnEllipseIsWithinItsBands) {
  test::Noise noise(11);
  Errors azimuth, ratio;
  for (int trial = 0; trial < kEllipseCases; ++trial) {
    const double turn = noise.uniform(0, 180), shrink = noise.uniform(0.3, 0.7);
    const NestedModel model = test::nested(0.2, {{Form::spherical, 0.8, noise.uniform(500, 1200)}});
    Options options;
    options.forms = {Form::spherical};
    options.structures = 1;
    const Result result = ellipseModel(directions(model, turn, shrink, noise), options);
    ASSERT_TRUE(result.isOffered()) << result.refusal;
    const Anisotropy& found = *result.choice().anisotropy;
    azimuth.add(std::remainder(found.angles.azimuth - turn, 180));
    ratio.add(found.minor1 / shrink - 1);
  }
  EXPECT_LT(azimuth.within(95), 6);
  EXPECT_LT(azimuth.within(100), 12);
  EXPECT_LT(ratio.within(95), 0.15);
}

}  // namespace
}  // namespace zevfit::fitting
