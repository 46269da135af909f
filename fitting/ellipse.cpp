#include "fitting/ellipse.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "coreg/eigenvalues.h"
#include "fitting/dense.h"
#include "fitting/elementary.h"

namespace zevfit::fitting {
namespace {

using Coordinates = std::array<double, 3>;

/// Digits of a unit vector that are kept: the sine of a library may differ beyond them.
constexpr double kKept = 0x1p40;
/// Directions of which the cosine is nearer to 1 are one axis.
constexpr double kSameAxis = 1 - 1e-9;
/// The logarithms of the flattest ellipses: 1 : 20, in space about 1 : 200.
constexpr double kMostInPlane = 2.9957322735539909, kMostInSpace = 7;
/// The cosine of what counts as a right angle between directions whose names are rounded.
constexpr double kRightAngle = 0.03;
/// Of quadratic forms that count as independent.
constexpr double kIndependent = 1e-6;

Coordinates coordinates(const Vector& v) { return {v.east, v.north, v.up}; }

Vector kept(const Vector& v) {
  const auto round = [](double x) { return std::round(x * kKept) / kKept + 0.0; };
  return {round(v.east), round(v.north), round(v.up)};
}

Tensor outer(const Vector& v) {
  const Coordinates c = coordinates(v);
  Tensor result{};
  for (std::size_t i = 0; i < 3; ++i)
    for (std::size_t j = 0; j < 3; ++j) result[i][j] = c[i] * c[j];
  return result;
}

Tensor product(const Tensor& a, const Tensor& b) {
  Tensor result{};
  for (std::size_t i = 0; i < 3; ++i)
    for (std::size_t j = 0; j < 3; ++j)
      for (std::size_t k = 0; k < 3; ++k) result[i][j] += a[i][k] * b[k][j];
  return result;
}

void add(Tensor& to, const Tensor& what, double factor) {
  for (std::size_t i = 0; i < 3; ++i)
    for (std::size_t j = 0; j < 3; ++j) to[i][j] += factor * what[i][j];
}

double quadratic(const Tensor& tensor, const Vector& v) {
  const Coordinates c = coordinates(v);
  double sum = 0;
  for (std::size_t i = 0; i < 3; ++i)
    for (std::size_t j = 0; j < 3; ++j) sum += c[i] * tensor[i][j] * c[j];
  return sum;
}

/// By scaling and squaring (Golub and Van Loan, 9.3.1).
Tensor exponential(const Tensor& tensor) {
  constexpr int kTerms = 12, kSquarings = 6;
  const Tensor one{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};
  Tensor result = one;
  for (int i = kTerms; i > 0; --i) {
    Tensor next = one;
    add(next, product(tensor, result), 0x1p-6 / i);
    result = next;
  }
  for (int i = 0; i < kSquarings; ++i) result = product(result, result);
  return result;
}

const Tensor kEastNorth{{{1, 0, 0}, {0, -1, 0}, {0, 0, 0}}};
const Tensor kOblique{{{0, 1, 0}, {1, 0, 0}, {0, 0, 0}}};
const Tensor kHeight{{{-0.5, 0, 0}, {0, -0.5, 0}, {0, 0, 1}}};
const Tensor kTiltEast{{{0, 0, 1}, {0, 0, 0}, {1, 0, 0}}};
const Tensor kTiltNorth{{{0, 0, 0}, {0, 0, 1}, {0, 1, 0}}};
const Tensor kBall{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

/// Longer along one vector, shorter along another.
Tensor longer(const Vector& along, const Vector& across) {
  Tensor result = outer(across);
  add(result, outer(along), -1);
  return result;
}

/// The same along a direction's azimuth and across it.
Tensor longer(const Direction& direction) {
  return longer(kept(unitVector({direction.azimuth, 0})),
                kept(unitVector({direction.azimuth + 90, 0})));
}

/// Shorter along the third axis, longer along the others.
Tensor flat(const Axes& axes) {
  Tensor result = outer(axes[2]);
  add(result, outer(axes[0]), -0.5);
  add(result, outer(axes[1]), -0.5);
  return result;
}

bool isSameAxis(const Vector& a, const Vector& b) { return std::abs(dot(a, b)) > kSameAxis; }

/// The places of the directions that tell something, each axis once.
std::vector<std::size_t> axesOf(const std::vector<Arm>& arms) {
  std::vector<std::size_t> found;
  for (std::size_t i = 0; i < arms.size(); ++i) {
    const Vector v = unitVector(arms[i].direction);
    const auto same = [&](std::size_t j) { return isSameAxis(v, unitVector(arms[j].direction)); };
    if (arms[i].informs && std::ranges::none_of(found, same)) found.push_back(i);
  }
  return found;
}

bool isLevel(const Arm& arm) { return arm.direction.dip == 0; }

/// Directions tell how much there is of each term and of the ball.
bool isTold(const std::vector<Vector>& vectors, const std::vector<Tensor>& terms) {
  Square<8> matrix{};
  for (const Vector& v : vectors) {
    Vec<8> forms{quadratic(kBall, v)};
    for (std::size_t i = 0; i < terms.size(); ++i) forms[i + 1] = quadratic(terms[i], v);
    for (std::size_t i = 0; i <= terms.size(); ++i)
      for (std::size_t j = 0; j <= terms.size(); ++j) matrix[i][j] += forms[i] * forms[j];
  }
  Vec<8> solution;
  return solve(matrix, Vec<8>{}, terms.size() + 1, kIndependent, solution);
}

/// Terms, and how many of them are of the plane.
struct Terms {
  std::vector<Tensor> all;
  std::size_t level = 0;
};

/// Three directions at right angles, as an ellipsoid is often sampled along its axes; nothing where
/// there are none, or one of them is upright.
std::optional<Axes> obliqueTriad(const std::vector<Arm>& arms, const std::vector<Vector>& vectors) {
  const auto areRight = [&](std::size_t i, std::size_t j) {
    return std::abs(dot(vectors[i], vectors[j])) < kRightAngle;
  };
  const auto isUpright = [](const Vector& v) { return std::abs(v.up) > 1 - kRightAngle; };
  if (std::ranges::any_of(vectors, isUpright)) return std::nullopt;
  const std::vector<std::size_t> places = axesOf(arms);
  for (std::size_t i = 0; i < vectors.size(); ++i)
    for (std::size_t j = i + 1; j < vectors.size(); ++j)
      for (std::size_t k = j + 1; k < vectors.size(); ++k) {
        if (!areRight(i, j) || !areRight(i, k) || !areRight(j, k)) continue;
        Axes axes = rightAngled(arms[places[i]].direction, arms[places[j]].direction);
        std::ranges::transform(axes, axes.begin(), kept);
        return axes;
      }
  return std::nullopt;
}

/// The most terms that the directions tell.
Terms termsOf(const std::vector<Arm>& arms, bool plane, std::size_t main) {
  std::vector<Vector> vectors;
  for (const std::size_t i : axesOf(arms)) vectors.push_back(unitVector(arms[i].direction));
  const Tensor azimuth = longer(arms.at(main).direction);
  std::vector<Terms> tried{{{kEastNorth, kOblique}, 2}, {{azimuth}, 1}};
  if (!plane) {
    tried = {{{kEastNorth, kOblique, kHeight, kTiltEast, kTiltNorth}, 2}};
    if (const std::optional<Axes> axes = obliqueTriad(arms, vectors))
      tried.push_back({{longer((*axes)[0], (*axes)[1]), flat(*axes)}, 1});
    tried.push_back({{kEastNorth, kOblique, kHeight}, 2});
    tried.push_back({{azimuth, kHeight}, 1});
    tried.push_back({{kHeight}, 0});
  }
  for (Terms& terms : tried)
    if (isTold(vectors, terms.all)) return std::move(terms);
  return {};
}

bool isPlane(const std::vector<Arm>& arms) { return std::ranges::all_of(arms, isLevel); }

double norm(std::span<const double> theta) {
  double squares = 0;
  for (const double value : theta) squares += value * value;
  return std::sqrt(squares);
}

/// A triad of which Main does not rise, and has the smaller azimuth where it is level.
Axes turned(Axes axes) {
  const Angles angles = anglesOf(axes);
  if (angles.dip < 0 || (angles.dip == 0 && angles.azimuth >= 180))
    for (std::size_t i = 0; i < 2; ++i)
      axes.at(i) = {-axes.at(i).east, -axes.at(i).north, -axes.at(i).up};
  return axes;
}

}  // namespace

EllipseFamily EllipseFamily::circle(std::size_t directions) {
  EllipseFamily family;
  family.vectors_.resize(directions);
  return family;
}

EllipseFamily EllipseFamily::of(const std::vector<Arm>& arms, std::size_t main) {
  EllipseFamily family;
  for (const Arm& arm : arms) family.vectors_.push_back(kept(unitVector(arm.direction)));
  family.plane_ = fitting::isPlane(arms);
  Terms terms = termsOf(arms, family.plane_, main);
  family.terms_ = std::move(terms.all);
  family.level_ = terms.level;
  return family;
}

Tensor EllipseFamily::sum(std::span<const double> theta) const {
  Tensor result{};
  for (std::size_t i = 0; i < terms_.size(); ++i) add(result, terms_[i], theta[i]);
  return result;
}

void EllipseFamily::scales(std::span<const double> theta, std::span<double> scales) const {
  if (terms_.empty()) {
    std::ranges::fill(scales, 1.0);
    return;
  }
  const Tensor tensor = exponential(sum(theta));
  for (std::size_t d = 0; d < vectors_.size(); ++d)
    scales[d] = std::sqrt(quadratic(tensor, vectors_[d]));
}

EllipseFamily::Drawn EllipseFamily::drawn(std::span<const double> theta) const {
  Drawn result;
  result.anisotropy.plane = plane_;
  result.anisotropy.axes = rightAngled({0, 0}, {90, 0});
  const Tensor tensor = sum(theta);
  SymmetricMatrix matrix(plane_ ? 2 : 3);
  for (std::size_t i = 0; i < matrix.order(); ++i)
    for (std::size_t j = 0; j <= i; ++j) matrix.set(i, j, tensor[i][j]);
  const Eigensystem system = eigensystem(matrix);
  const auto shrinks = [&](std::size_t i) {
    return exponentialOf((system.values.front() - system.values.at(i)) / 2);
  };
  result.main = exponentialOf(-system.values.front() / 2);
  result.anisotropy.minor1 = shrinks(1);
  result.anisotropy.minor2 = shrinks(matrix.order() - 1);
  if (norm(theta) == 0) return result;
  const auto axis = [&](std::size_t i) {
    const std::vector<double>& v = system.vectors.at(i);
    return Vector{v[0], v[1], plane_ ? 0 : v[2]};
  };
  const Axes axes{axis(0), axis(1), cross(axis(0), axis(1))};
  result.anisotropy.axes = turned(axes);
  result.anisotropy.angles = anglesOf(result.anisotropy.axes);
  return result;
}

double EllipseFamily::most() const { return plane_ ? kMostInPlane : kMostInSpace; }

void EllipseFamily::clamp(std::span<double> theta) const {
  const double length = norm(theta);
  if (length <= most()) return;
  for (double& value : theta) value *= most() / length;
}

bool EllipseFamily::isAtLimit(std::span<const double> theta) const {
  return norm(theta) > most() * (1 - 1e-9);
}

std::vector<std::vector<double>> EllipseFamily::grid() const {
  constexpr std::array kLengths{0.4, 0.9, 1.5};
  constexpr std::array kHeights{0.0, -1.5, 1.5, 3.0, 5.0};
  constexpr std::array kTilts{0.0, -1.0, 1.0};
  constexpr double kHalf = 0.5, kRoot = 0.86602540378443865;
  constexpr std::array<std::array<double, 2>, 6> kTurns{
      {{1, 0}, {kRoot, kHalf}, {kHalf, kRoot}, {0, 1}, {-kHalf, kRoot}, {-kRoot, kHalf}}};
  std::vector<std::vector<double>> grid{std::vector<double>(level_)};
  for (const double length : kLengths)
    for (const double sign : {1.0, -1.0}) {
      if (level_ == 1) grid.push_back({sign * length});
      if (level_ != 2) continue;
      for (const auto& [p, q] : kTurns) grid.push_back({sign * length * p, sign * length * q});
    }
  const auto spread = [&grid](const auto& values) {
    std::vector<std::vector<double>> all;
    for (const double value : values)
      for (std::vector<double> one : grid) {
        one.push_back(value);
        all.push_back(std::move(one));
      }
    grid = std::move(all);
  };
  for (std::size_t i = level_; i < terms_.size(); ++i)
    i == level_ ? spread(kHeights) : spread(kTilts);
  return grid;
}

std::vector<std::size_t> mainChoices(const std::vector<Arm>& arms) {
  const std::vector<std::size_t> axes = axesOf(arms);
  if (isPlane(arms) && axes.size() == 2) return axes;
  // In space the azimuth of the first level direction, where it matters.
  const auto level = std::ranges::find_if(axes, [&](std::size_t i) { return isLevel(arms[i]); });
  return {level == axes.end() ? 0 : *level};
}

}  // namespace zevfit::fitting
