#pragma once

#include <functional>
#include <span>
#include <vector>

namespace zevfit::fitting {

/// Where a sum of squares is least, as far as was looked.
struct Minimum {
  std::vector<double> theta;
  double sum = 0;
};

/// The golden section (Press et al., "Numerical Recipes", 3rd edition, 10.2) between two ends.
Minimum goldenSection(const std::function<double(double)>& function, double from, double to);

/// What is to be squared and summed, by parameters; valid until the next call.
using Residuals = std::function<std::span<const double>(std::span<const double>)>;
/// Brings parameters to within their limits.
using Clamp = std::function<void(std::span<double>)>;

/// How far a descent goes. What is minimised may have some rounding: differences are to be large
/// beside it, gains not smaller.
struct Precision {
  double difference = 1e-6;  ///< of a parameter, for derivatives
  double step = 1e-10;       ///< shorter ones are none
  double gain = 1e-12;       ///< a step that gains less than this part of the sum is the last
};

/// The method of Levenberg and Marquardt (Press et al., 15.5.2) with differences for derivatives,
/// downhill from a start within the limits. Never worse than the start.
Minimum descend(const Residuals& residuals, const Clamp& clamp, std::vector<double> start,
                const Precision& precision = {});

}  // namespace zevfit::fitting
