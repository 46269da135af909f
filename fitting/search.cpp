#include "fitting/search.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "fitting/minimise.h"
#include "fitting/starts.h"

namespace zevfit::fitting {
namespace {

/// Ranges of one structure; with several the grids are joint, and coarser where they are large.
constexpr std::size_t kRanges = 60, kRangesOnEllipses = 20;
constexpr std::size_t kJointRanges = 60, kJointRangesOnEllipses = 24, kTripleRanges = 20;
constexpr std::size_t kStarts = 3;
/// Ellipses whose parameters differ by less are neighbours.
constexpr double kNearEllipse = 0.6, kSameEllipse = 0.1;
/// Rounds of weights by the model, and the change at which they have settled.
constexpr int kMostRounds = 200;
constexpr double kSettled = 1e-9;
/// A fitted sill below this part of the largest is what rounding leaves of an exact model.
constexpr double kRounding = 1e-13;

bool hasEllipse(const Problem& problem, const std::vector<Form>& forms) {
  return problem.family.parameters() > 0 &&
         std::ranges::any_of(forms, [](Form form) { return form != Form::power; });
}

Minimum refined(Projection& projection, const Starts& starts, const Theta& near) {
  const Residuals residuals = [&](std::span<const double> theta) {
    return projection.residuals(theta);
  };
  const Clamp clamp = [&](std::span<double> theta) { projection.clamp(theta); };
  Minimum best;
  bool any = false;
  for (const Starts::Place& place : starts.places()) {
    Minimum found{place.theta, place.sum};
    if (place.theta.size() == 1) {
      const auto sum = [&](double at) { return squaresOf(residuals(std::span(&at, 1))); };
      std::vector<double> ends{place.theta[0] - near[0], place.theta[0] + near[0]};
      for (double& end : ends) clamp(std::span(&end, 1));
      found = goldenSection(sum, ends[0], ends[1]);
      // The section never comes quite to an end.
      for (const double end : ends)
        if (const double atEnd = sum(end); atEnd < found.sum) found = {{end}, atEnd};
    } else if (!place.theta.empty()) {
      found = descend(residuals, clamp, place.theta);
    }
    if (!any || found.sum < best.sum) best = std::move(found);
    any = true;
  }
  return best;
}

/// One structure on the grid of its ranges, for each ellipse.
Minimum single(const Problem& problem, Form form) {
  Projection projection(problem, {form});
  const bool drawn = hasEllipse(problem, {form});
  const auto ellipses =
      drawn ? problem.family.grid() : std::vector<Theta>{Theta(problem.family.parameters())};
  const std::size_t points = ellipses.size() > 1 ? kRangesOnEllipses : kRanges;
  const Theta near = nearness(problem, {form}, points);
  Starts starts(kStarts, near);
  for (const Theta& ellipse : ellipses)
    for (const double parameter : rangeGrid(problem.limits, form, points)) {
      Theta theta{parameter};
      theta.insert(theta.end(), ellipse.begin(), ellipse.end());
      starts.add(theta, squaresOf(projection.residuals(theta)));
    }
  return refined(projection, starts, near);
}

/// The ellipses that structures by themselves have, and the circle.
std::vector<Theta> ellipsesOf(const Problem& problem, const std::vector<Minimum>& singles) {
  std::vector<Theta> ellipses{Theta(problem.family.parameters())};
  if (problem.family.parameters() == 0) return ellipses;
  for (const Minimum& minimum : singles) {
    const Theta ellipse(minimum.theta.begin() + 1, minimum.theta.end());
    const auto isSame = [&](const Theta& other) {
      double squares = 0;
      for (std::size_t i = 0; i < ellipse.size(); ++i)
        squares += (ellipse[i] - other[i]) * (ellipse[i] - other[i]);
      return squares < kSameEllipse * kSameEllipse;
    };
    if (std::ranges::none_of(ellipses, isSame)) ellipses.push_back(ellipse);
  }
  return ellipses;
}

std::vector<Form> formsOf(const std::vector<std::vector<Form>>& sets) {
  std::vector<Form> forms;
  for (const std::vector<Form>& set : sets)
    for (const Form form : set)
      if (std::ranges::count(forms, form) == 0) forms.push_back(form);
  return forms;
}

/// Sets of several structures, from their joint grids for some ellipses.
class Joint {
 public:
  Joint(const Problem& problem, const std::vector<Form>& forms, const std::vector<Theta>& ellipses,
        std::size_t structures)
      : problem_(problem), points_(pointsOf(problem, structures)) {
    for (const Theta& ellipse : ellipses) grids_.emplace_back(problem, forms, points_, ellipse);
  }

  Minimum best(const std::vector<Form>& set) const {
    const Theta near = nearness(problem_, set, points_);
    Starts starts(kStarts, near);
    for (const JointGrid& grid : grids_) grid.scan(set, starts);
    Projection projection(problem_, set);
    return refined(projection, starts, near);
  }

 private:
  static std::size_t pointsOf(const Problem& problem, std::size_t structures) {
    if (structures > 2) return kTripleRanges;
    return problem.family.parameters() > 0 ? kJointRangesOnEllipses : kJointRanges;
  }

  const Problem& problem_;
  std::size_t points_;
  std::vector<JointGrid> grids_;
};

/// Of those behind the first ones that are told; power forms have none.
void dropRounding(const std::vector<Form>& forms, std::size_t first, Vec<kMostColumns>& sills) {
  double largest = 0;
  const auto isFitted = [&](std::size_t i) { return i == 0 || forms[i - 1] != Form::power; };
  for (std::size_t i = first; i <= forms.size(); ++i)
    if (isFitted(i)) largest = std::max(largest, std::abs(sills.at(i)));
  for (std::size_t i = first; i <= forms.size(); ++i)
    if (isFitted(i) && std::abs(sills.at(i)) < kRounding * largest) sills.at(i) = 0;
}

Found foundAt(const Problem& problem, const std::vector<Form>& set, const Minimum& minimum) {
  Projection projection(problem, set);
  Found found{set, minimum.theta, 0, 0, {}};
  const double unit = problem.entries.front().sumUnit();
  found.sum = squaresOf(projection.residuals(minimum.theta)) * unit;
  for (std::size_t e = 0; e < problem.entries.size(); ++e) {
    const Entry& entry = problem.entries[e];
    for (std::size_t i = 0; i < entry.size(); ++i) {
      const double value = entry.roots[i] * entry.values[i];
      found.total += value * value * unit;
    }
    found.sills.push_back(projection.sills(e));
    // A nugget that is told stays.
    dropRounding(set, problem.nugget ? 1 : 0, found.sills.back());
    for (double& sill : found.sills.back()) sill *= entry.unit;
  }
  return found;
}

/// Renews the weights by the model and looks for its parameters nearby, in turn.
Found settled(Problem problem, const std::vector<Form>& set, Minimum minimum) {
  for (int round = 0; round < kMostRounds; ++round) {
    Projection before(problem, set);
    const std::span<const double> residuals = before.residuals(minimum.theta);
    if (renewWeights(problem.entries, residuals) < kSettled) break;
    Projection projection(problem, set);
    minimum = descend([&](std::span<const double> theta) { return projection.residuals(theta); },
                      [&](std::span<double> theta) { projection.clamp(theta); }, minimum.theta);
  }
  return foundAt(problem, set, minimum);
}

}  // namespace

Theta nearness(const Problem& problem, const std::vector<Form>& set, std::size_t points) {
  Theta near;
  for (const Form form : set)
    near.push_back(1.01 * (problem.limits.upper(form) - problem.limits.lower(form)) /
                   static_cast<double>(points - 1));
  near.resize(set.size() + problem.family.parameters(), kNearEllipse);
  return near;
}

std::vector<Found> search(const Problem& problem, const std::vector<std::vector<Form>>& sets,
                          bool isReweighted, const Tell& whole) {
  const std::vector<Form> forms = formsOf(sets);
  std::size_t most = 0, done = 0;
  for (const std::vector<Form>& set : sets) most = std::max(most, set.size());
  const auto tellNext = [&] { tell(whole, ++done, forms.size() + sets.size()); };
  std::vector<Minimum> singles;
  singles.reserve(forms.size());
  for (const Form form : forms) {
    singles.push_back(single(problem, form));
    tellNext();
  }
  std::vector<Joint> joint;
  if (most > 1) joint.emplace_back(problem, forms, ellipsesOf(problem, singles), most);
  std::vector<Found> all;
  for (const std::vector<Form>& set : sets) {
    Minimum minimum{Theta(problem.family.parameters()), 0};
    if (set.size() == 1)
      minimum = singles[static_cast<std::size_t>(std::ranges::find(forms, set[0]) - forms.begin())];
    if (set.size() > 1) minimum = joint.front().best(set);
    all.push_back(isReweighted ? settled(problem, set, std::move(minimum))
                               : foundAt(problem, set, minimum));
    tellNext();
  }
  return all;
}

}  // namespace zevfit::fitting
