#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

#include "fitting/fit.h"
#include "model/axes.h"

namespace zevfit::fitting {

/// A symmetric matrix over east, north and up.
using Tensor = std::array<std::array<double, 3>, 3>;

/// A direction of a fit, and whether it has classes.
struct Arm {
  Direction direction;
  bool informs = true;
};

/// The ellipses that a fit looks at. With a mean range a, the range along the unit vector u is
/// a / sqrt(u exp(X) u), where X is a symmetric matrix of trace 0: smooth also where the ellipse is
/// a circle, and an ellipse whatever X is (Arsigny et al., SIAM J. Matrix Anal. Appl. 29, 2007). X
/// is a sum of the terms of the family, of which a parameter each tells how much.
class EllipseFamily {
 public:
  /// All ranges are one, in so many directions.
  static EllipseFamily circle(std::size_t directions);
  /// What the directions tell: in the plane azimuth and ratio, or with two directions the ratio
  /// alone; where some dip an upright ellipsoid, one along three of them that are at right angles,
  /// or with six and more any. `main` is which of the
  /// directions tells the azimuth where they are too few for it.
  static EllipseFamily of(const std::vector<Arm>& arms, std::size_t main);

  std::size_t parameters() const { return terms_.size(); }
  std::size_t directions() const { return vectors_.size(); }

  /// What distances along each direction are multiplied by, in mean ranges.
  void scales(std::span<const double> theta, std::span<double> scales) const;
  /// The ellipse, and what the mean range is multiplied by to be that along Main.
  struct Drawn {
    Anisotropy anisotropy;
    double main = 1;
  };
  Drawn drawn(std::span<const double> theta) const;
  /// Brings ratios to within 1 : 20, in space about 1 : 200.
  void clamp(std::span<double> theta) const;
  bool isAtLimit(std::span<const double> theta) const;
  /// Ellipses to begin with, the circle first.
  std::vector<std::vector<double>> grid() const;

 private:
  Tensor sum(std::span<const double> theta) const;
  double most() const;

  std::vector<Vector> vectors_;
  std::vector<Tensor> terms_;  ///< those of the plane, that of the height, those of tilts
  std::size_t level_ = 0;      ///< terms of the plane
  bool plane_ = true;
};

/// The directions of an ellipse that can stand for Main one by one, since they are too few to tell
/// its azimuth: their places. One place, 0, where the azimuth is told.
std::vector<std::size_t> mainChoices(const std::vector<Arm>& arms);

}  // namespace zevfit::fitting
