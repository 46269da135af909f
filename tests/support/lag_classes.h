#pragma once

#include <cmath>
#include <random>
#include <vector>

#include "fitting/classes.h"
#include "model/nested_model.h"

namespace zevfit::test {

/// Random numbers that are the same with every library.
class Noise {
 public:
  explicit Noise(unsigned seed) : engine_(seed) {}
  double uniform(double from, double to) {
    return from + (to - from) * (static_cast<double>(engine_()) + 0.5) / 4294967296.0;
  }
  /// Of mean 0 and deviation 1: twelve uniform ones.
  double normal() {
    double sum = -6;
    for (int i = 0; i < 12; ++i) sum += uniform(0, 1);
    return sum;
  }

 private:
  std::mt19937 engine_;
};

/// Classes of which a model is the semivariance exactly, where distances count `scale` times.
inline fitting::Classes classesOf(const NestedModel& model, int count, double width,
                                  double scale = 1, double pairs = 500) {
  fitting::Classes classes;
  for (int k = 1; k <= count; ++k) {
    const double h = width * (k - 0.45);
    classes.push_back({h, semivariance(model, h * scale), pairs});
  }
  return classes;
}

/// The deviation that N independent pairs of normal differences leave: gamma sqrt(2 / N), and
/// `factor` times that.
inline void addNoise(fitting::Classes& classes, Noise& noise, double factor = 1) {
  for (fitting::LagClass& lag : classes)
    lag.semivariance *= 1 + factor * std::sqrt(2 / lag.pairs) * noise.normal();
}

inline NestedModel nested(double nugget, const std::vector<Structure>& structures) {
  NestedModel model{nugget, {}};
  for (std::size_t s = 0; s < structures.size(); ++s) model.structures.at(s) = structures[s];
  return model;
}

}  // namespace zevfit::test
