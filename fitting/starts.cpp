#include "fitting/starts.h"

#include <algorithm>
#include <cmath>

namespace zevfit::fitting {
namespace {

constexpr std::size_t kData = 0, kNugget = 1, kFirstForm = 2;

/// The next choice of points, the last counting fastest; false behind the last.
bool advance(std::vector<std::size_t>& points, std::size_t count) {
  for (std::size_t i = points.size(); i-- > 0;) {
    if (++points[i] < count) return true;
    points[i] = 0;
  }
  return false;
}

bool isRising(const std::vector<Form>& set, const std::vector<std::size_t>& points) {
  for (std::size_t i = 1; i < set.size(); ++i)
    if (set[i] == set[i - 1] && points[i] <= points[i - 1]) return false;
  return true;
}

}  // namespace

bool Starts::areNear(const Theta& a, const Theta& b) const {
  for (std::size_t i = 0; i < a.size(); ++i)
    if (std::abs(a[i] - b[i]) > near_[i]) return false;
  return true;
}

void Starts::add(const Theta& theta, double sum) {
  if (!isOfUse(sum)) return;
  for (const Place& place : places_)
    if (place.sum <= sum && areNear(place.theta, theta)) return;
  std::erase_if(places_, [&](const Place& place) { return areNear(place.theta, theta); });
  const auto behind =
      std::ranges::upper_bound(places_, sum, {}, [](const Place& place) { return place.sum; });
  places_.insert(behind, {theta, sum});
  if (places_.size() > most_) places_.pop_back();
}

std::vector<double> rangeGrid(const RangeLimits& limits, Form form, std::size_t points) {
  std::vector<double> grid;
  const double from = limits.lower(form), to = limits.upper(form);
  for (std::size_t i = 0; i < points; ++i)
    grid.push_back(from + (to - from) * static_cast<double>(i) / static_cast<double>(points - 1));
  return grid;
}

JointGrid::JointGrid(const Problem& problem, const std::vector<Form>& forms, std::size_t points,
                     const Theta& ellipse)
    : forms_(forms),
      points_(points),
      columns_(kFirstForm + forms.size() * points),
      ellipse_(ellipse),
      fixedNugget_(problem.nugget.has_value()) {
  std::vector<double> scales(problem.family.directions());
  problem.family.scales(ellipse, scales);
  for (const Form form : forms_) grids_.push_back(rangeGrid(problem.limits, form, points));
  for (const Entry& entry : problem.entries) entries_.push_back(productsOf(entry, problem, scales));
}

JointGrid::Products JointGrid::productsOf(const Entry& entry, const Problem& problem,
                                          const std::vector<double>& scales) const {
  const std::size_t size = entry.size();
  std::vector<double> columns(columns_ * size);
  const auto column = [&](std::size_t c) { return std::span(columns).subspan(c * size, size); };
  const double nugget = problem.nugget.value_or(0);
  for (std::size_t i = 0; i < size; ++i) {
    column(kData)[i] = entry.roots[i] * (entry.values[i] - nugget);
    column(kNugget)[i] = entry.roots[i];
  }
  for (std::size_t f = 0; f < forms_.size(); ++f)
    for (std::size_t p = 0; p < points_; ++p)
      fillColumn(entry, forms_[f], grids_[f][p], scales, column(kFirstForm + f * points_ + p));
  Products products{std::vector<double>(columns_ * columns_), entry.nonNegative, entry.unit};
  for (std::size_t a = 0; a < columns_; ++a)
    for (std::size_t b = 0; b <= a; ++b)
      products.all[a * columns_ + b] = products.all[b * columns_ + a] =
          fitting::product(column(a), column(b));
  return products;
}

std::size_t JointGrid::columnOf(Form form, std::size_t point) const {
  const auto at = static_cast<std::size_t>(std::ranges::find(forms_, form) - forms_.begin());
  return kFirstForm + at * points_ + point;
}

double JointGrid::sumOf(const Products& products, const std::vector<Form>& set,
                        const std::vector<std::size_t>& points) const {
  std::array<std::size_t, kMostColumns> fitted{}, given{};
  std::size_t count = 0, givens = 0;
  if (!fixedNugget_) fitted[count++] = kNugget;
  for (std::size_t s = 0; s < set.size(); ++s)
    (set[s] == Form::power ? given[givens++] : fitted[count++]) = columnOf(set[s], points[s]);
  // What is left of the data behind the power structures, whose sills are given.
  const double sill = 1 / products.unit;
  const auto withData = [&](std::size_t column) {
    double value = product(products, kData, column);
    for (std::size_t g = 0; g < givens; ++g) value -= sill * product(products, given[g], column);
    return value;
  };
  double data = withData(kData);
  for (std::size_t g = 0; g < givens; ++g) data -= sill * withData(given[g]);
  Normal normal;
  for (std::size_t i = 0; i < count; ++i) {
    normal.right[i] = withData(fitted[i]);
    for (std::size_t j = 0; j <= i; ++j)
      normal.products[i][j] = normal.products[j][i] = product(products, fitted[i], fitted[j]);
  }
  return std::max(0.0, data - leastSquares(normal, count, products.nonNegative).explained);
}

double JointGrid::sumOf(const std::vector<Form>& set,
                        const std::vector<std::size_t>& points) const {
  double sum = 0;
  for (const Products& products : entries_) sum += sumOf(products, set, points);
  return sum;
}

void JointGrid::scan(const std::vector<Form>& set, Starts& starts) const {
  std::vector<std::size_t> points(set.size());
  do {
    if (!isRising(set, points)) continue;
    const double sum = sumOf(set, points);
    if (!starts.isOfUse(sum)) continue;
    Theta theta;
    for (std::size_t s = 0; s < set.size(); ++s) {
      const auto form =
          static_cast<std::size_t>(std::ranges::find(forms_, set[s]) - forms_.begin());
      theta.push_back(grids_[form][points[s]]);
    }
    theta.insert(theta.end(), ellipse_.begin(), ellipse_.end());
    starts.add(theta, sum);
  } while (advance(points, points_));
}

}  // namespace zevfit::fitting
