#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <numbers>
#include <string>
#include <vector>

#include "files/variogram_reader.h"
#include "model/nested_model.h"
#include "session/session.h"
#include "tests/zvm/command.h"

namespace zevfit::test {

using Arguments = std::vector<std::string>;

/// A variable with a spherical model; the range may depend on the azimuth.
struct Truth {
  std::string name;
  double nugget = 0.1, sill = 0.5, range = 300;
  double ratio = 1;    ///< of the range at right angles to the azimuth
  double azimuth = 0;  ///< of the longest range
  int pairs = 100;     ///< of every class; 0: classes without pairs

  double rangeAlong(double toward) const {
    const double angle = (toward - azimuth) * std::numbers::pi / 180;
    return range / std::hypot(std::cos(angle), std::sin(angle) / ratio);
  }
};

inline constexpr int kClasses = 12;

inline std::string number(double value) {
  char text[32];
  std::snprintf(text, sizeof text, "%.15g", value);
  return text;
}

/// A file of classes at 50, 100, ... that lie on the models.
inline std::string fileOf(const std::vector<Truth>& truths, const std::vector<double>& azimuths) {
  std::string head = "plain\nzevlag\n" + std::to_string(truths.size()) + '\n', data;
  for (const Truth& truth : truths) {
    head += truth.name + '\n';
    data += number(std::abs(truth.nugget + truth.sill)) + '\n';
    for (const double azimuth : azimuths)
      for (int k = 1; k <= kClasses; ++k) {
        const double h = 50.0 * k;
        const double gamma = truth.nugget + spherical(h, truth.sill, truth.rangeAlong(azimuth));
        data += number(h) + ' ' + (truth.pairs > 0 ? number(gamma) : "0") + ' ' +
                std::to_string(truth.pairs) + '\n';
      }
  }
  head += std::to_string(azimuths.size()) + '\n' + std::to_string(kClasses) + '\n';
  for (const double azimuth : azimuths) head += number(azimuth) + ";0\n";
  return head + data;
}

inline const std::vector<double> kFour{0, 45, 90, 135};

class FitVerb : public testing::Test {
 protected:
  std::string path(const std::string& name) const { return (folder_ / name).string(); }
  std::string write(const std::string& name, const std::string& bytes) const {
    putFile(folder_ / name, bytes);
    return path(name);
  }
  /// Fits a file into "out.zvm", which it replaces.
  Ran fitted(const std::string& bytes, const Arguments& more = {}) const {
    Arguments arguments{"fit", "-", path("out.zvm"), "--overwrite"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return ran(arguments, bytes);
  }
  std::string output() const { return contentOf(path("out.zvm")); }
  /// The model that the written file has for a pair.
  NestedModel modelAt(std::int64_t variable, std::int64_t direction) const {
    const auto session = std::make_unique<Session>();
    EXPECT_TRUE(readVariogramFile(path("out.zvm"), *session));
    return modelOf(*session, {variable, direction});
  }

 private:
  ScratchFolder folder_;
};

inline void expectSpherical(const NestedModel& model, double nugget, double sill, double range) {
  ASSERT_TRUE(model.structures[0]);
  EXPECT_EQ(model.structures[0]->form, Form::spherical);
  EXPECT_NEAR(model.nugget, nugget, 1e-4);
  EXPECT_NEAR(model.structures[0]->sill, sill, 1e-4);
  EXPECT_NEAR(model.structures[0]->range, range, 1e-3 * range);
  EXPECT_FALSE(model.structures[1]);
}

}  // namespace zevfit::test
