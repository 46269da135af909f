#include "fitting/minimise.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

#include "fitting/dense.h"
#include "fitting/problem.h"

namespace zevfit::fitting {
namespace {

/// Unknowns of the largest descent: three ranges and five of an ellipsoid.
constexpr std::size_t kMostUnknowns = 8;

constexpr int kMostSteps = 60;
/// Longer steps leave the stretch on which a derivative tells anything.
constexpr double kLongestStep = 1;
constexpr double kFirstDamping = 1e-3, kMostDamping = 1e8, kLeastDamping = 1e-9;

/// Squares and gradient of what is linear at a place.
struct Slope {
  Square<kMostUnknowns> squares{};
  Vec<kMostUnknowns> gradient{};
};

class Descent {
 public:
  Descent(const Residuals& residuals, const Clamp& clamp, std::vector<double> start,
          const Precision& precision)
      : residuals_(residuals), clamp_(clamp), best_{std::move(start), 0}, precision_(precision) {
    best_.sum = sumAt(best_.theta);
  }

  Minimum run() {
    for (int step = 0; step < kMostSteps; ++step)
      if (!improve()) break;
    return std::move(best_);
  }

 private:
  double sumAt(const std::vector<double>& theta) {
    const double sum = squaresOf(residuals_(theta));
    return std::isfinite(sum) ? sum : std::numeric_limits<double>::max();
  }

  Slope slope() {
    const std::size_t count = best_.theta.size();
    const std::span<const double> found = residuals_(best_.theta);
    const std::vector<double> here(found.begin(), found.end());
    derivatives_.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
      std::vector<double> beside = best_.theta;
      beside[i] += precision_.difference;
      const std::span<const double> there = residuals_(beside);
      derivatives_[i].resize(here.size());
      for (std::size_t k = 0; k < here.size(); ++k)
        derivatives_[i][k] = (there[k] - here[k]) / precision_.difference;
    }
    Slope slope;
    for (std::size_t i = 0; i < count; ++i) {
      slope.gradient[i] = product(derivatives_[i], here);
      for (std::size_t j = 0; j <= i; ++j)
        slope.squares[i][j] = slope.squares[j][i] = product(derivatives_[i], derivatives_[j]);
    }
    holdBack(slope);
    return slope;
  }

  /// What says nothing, or would leave its limits, stays.
  void holdBack(Slope& slope) {
    for (std::size_t i = 0; i < best_.theta.size(); ++i) {
      std::vector<double> beside = best_.theta;
      beside[i] -= slope.gradient[i] > 0 ? precision_.difference : -precision_.difference;
      clamp_(beside);
      if (slope.squares[i][i] > 0 && beside[i] != best_.theta[i]) continue;
      slope.squares[i] = {};
      for (Vec<kMostUnknowns>& row : slope.squares) row[i] = 0;
      slope.squares[i][i] = 1;
      slope.gradient[i] = 0;
    }
  }

  /// One step downhill; false where there is none, or none worth another.
  bool improve() {
    const Slope at = slope();
    for (; damping_ < kMostDamping; damping_ *= 10) {
      std::vector<double> trial = best_.theta;
      const double length = stepFrom(at, trial);
      if (length < precision_.step) return false;
      const double sum = sumAt(trial);
      if (!(sum < best_.sum)) continue;
      const bool isWorth = best_.sum - sum > precision_.gain * best_.sum;
      best_ = {std::move(trial), sum};
      damping_ = std::max(damping_ / 10, kLeastDamping);
      return isWorth;
    }
    return false;
  }

  /// Takes the damped step; its longest part, 0 where there is none.
  double stepFrom(const Slope& at, std::vector<double>& theta) {
    Square<kMostUnknowns> damped = at.squares;
    for (std::size_t i = 0; i < theta.size(); ++i) damped[i][i] *= 1 + damping_;
    Vec<kMostUnknowns> step{};
    if (!solve(damped, at.gradient, theta.size(), 0, step)) return 1;
    double longest = 0;
    for (std::size_t i = 0; i < theta.size(); ++i) longest = std::max(longest, std::abs(step[i]));
    const double factor = longest > kLongestStep ? kLongestStep / longest : 1;
    for (std::size_t i = 0; i < theta.size(); ++i) theta[i] -= factor * step[i];
    clamp_(theta);
    return longest;
  }

  const Residuals& residuals_;
  const Clamp& clamp_;
  Minimum best_;
  Precision precision_;
  double damping_ = kFirstDamping;
  std::vector<std::vector<double>> derivatives_;
};

}  // namespace

Minimum goldenSection(const std::function<double(double)>& function, double from, double to) {
  constexpr double kGolden = 0.61803398874989485, kNarrow = 1e-9;
  double low = to - kGolden * (to - from), high = from + kGolden * (to - from);
  double atLow = function(low), atHigh = function(high);
  while (to - from > kNarrow) {
    if (atLow <= atHigh) {
      to = high;
      high = low;
      atHigh = atLow;
      low = to - kGolden * (to - from);
      atLow = function(low);
    } else {
      from = low;
      low = high;
      atLow = atHigh;
      high = from + kGolden * (to - from);
      atHigh = function(high);
    }
  }
  return atLow <= atHigh ? Minimum{{low}, atLow} : Minimum{{high}, atHigh};
}

Minimum descend(const Residuals& residuals, const Clamp& clamp, std::vector<double> start,
                const Precision& precision) {
  clamp(start);
  return Descent(residuals, clamp, std::move(start), precision).run();
}

}  // namespace zevfit::fitting
