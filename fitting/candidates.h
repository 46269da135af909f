#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "fitting/fit.h"
#include "fitting/search.h"

namespace zevfit::fitting {

/// A nugget below this part of the sills is none beside Gaussian structures.
inline constexpr double kLeastNugget = 1e-3;

/// The sets of forms that options ask for, each form once or more, the nugget alone first.
std::vector<std::vector<Form>> formSets(const Options& options);

/// The places of structures by rising range, power forms last.
std::vector<std::size_t> byRange(const std::vector<Form>& forms, const Theta& theta);

/// The criterion of a candidate. A sum that is nothing but rounding beside that of the data counts
/// as that rounding, so that of exact models the simplest is best.
double aiccOf(double sum, double total, std::size_t classes, std::size_t parameters);

/// The fitted parameters that are neither sills nor nugget.
std::size_t rangeParameters(const Problem& problem, const std::vector<Form>& forms);

/// Says why ranges are no good: they have run into the end of the grid, exponents into theirs, or
/// the ellipse into its flattest.
void refuseRanges(const Problem& problem, const Theta& theta, Tried& tried);

/// Says where so few classes tell nothing of the parameters, or the sum is beyond all numbers.
void refuseNumbers(std::size_t classes, Tried& tried);

/// What a ranking comes to.
struct Choice {
  bool isOffered = false;
  bool unbounded = false;
  std::size_t place = 0;
};

/// An unbounded candidate must be better by this for nothing bounded to be taken.
inline constexpr double kClearlyBetter = 2;

/// Sorts candidates: those without a refusal first, each part by rising AICc. The first is taken
/// unless an unbounded one is clearly better: then one with a power form, or none.
template <class Candidate>
Choice rank(std::vector<Candidate>& ranking) {
  const auto isRefused = [](const Tried& tried) { return !tried.refusal.empty(); };
  std::ranges::stable_sort(ranking, [&](const Tried& a, const Tried& b) {
    return isRefused(a) != isRefused(b) ? isRefused(b) : a.aicc < b.aicc;
  });
  double unbounded = std::numeric_limits<double>::infinity();
  for (const Tried& tried : ranking)
    if (tried.unbounded) unbounded = std::min(unbounded, tried.aicc);
  for (std::size_t i = 0; i < ranking.size() && !isRefused(ranking[i]); ++i) {
    const bool isPower = std::ranges::count(ranking[i].forms, Form::power) > 0;
    if (isPower || !(unbounded < ranking[i].aicc - kClearlyBetter)) return {true, false, i};
  }
  return {false, std::isfinite(unbounded), 0};
}

/// Of equal sets the better candidates.
template <class Candidate>
void takeBetter(std::vector<Candidate>& best, std::vector<Candidate> others) {
  if (best.empty()) {
    best = std::move(others);
    return;
  }
  for (std::size_t i = 0; i < others.size(); ++i)
    if (others[i].sum < best[i].sum) best[i] = std::move(others[i]);
}

/// Why nothing is offered.
std::string refusalOf(const Choice& choice, const Tried& best);

}  // namespace zevfit::fitting
