#include "fitting/coregion_search.h"

#include <algorithm>
#include <map>

#include "fitting/minimise.h"
#include "fitting/search.h"
#include "fitting/starts.h"

namespace zevfit::fitting {
namespace {

using FormSet = std::vector<Form>;

/// Ranges that a further structure begins with, and how many beginnings are followed downhill.
constexpr std::size_t kRanges = 7, kStarts = 2;
/// Rounds of the iteration at a place that is looked at: what is left to gain is in sills that make
/// up for each other, and little of the sum.
constexpr int kRoundsAtStart = 30, kRoundsDownhill = 40;
/// Beside what the iteration leaves of the sills.
constexpr Precision kPrecision{1e-4, 1e-5, 1e-7};
/// Rounds of weights by the model, and the change at which they have settled.
constexpr int kMostRounds = 50;
constexpr double kSettled = 1e-6;
/// Of the search with sills by themselves in all work.
constexpr double kFirstShare = 0.3;

/// The sums of squares of one set of forms; sills begin with those of the place before.
class Sums {
 public:
  Sums(const Problem& problem, const Places& places, const FormSet& set)
      : fit_(problem, places, set), projection_(problem, set), last_(fit_.none()) {}

  std::span<const double> residuals(std::span<const double> theta, int rounds) {
    last_ = fit_.fit(theta, last_, rounds);
    return fit_.residuals();
  }

  Minimum descent(const Theta& from) {
    last_ = fit_.fit(from);
    return descend([this](auto theta) { return residuals(theta, kRoundsDownhill); },
                   [this](std::span<double> theta) { projection_.clamp(theta); }, from, kPrecision);
  }

 private:
  GoulardVoltz fit_;
  Projection projection_;
  SillMatrices last_;
};

/// The parameters with a further one in front of that of a structure.
Theta withRange(const Theta& theta, std::size_t structure, double range) {
  Theta longer = theta;
  longer.insert(longer.begin() + static_cast<std::ptrdiff_t>(structure), range);
  return longer;
}

FormSet without(const FormSet& set, std::size_t structure) {
  FormSet shorter = set;
  shorter.erase(shorter.begin() + static_cast<std::ptrdiff_t>(structure));
  return shorter;
}

class Together {
 public:
  Together(const Problem& problem, const Places& places, const std::vector<FormSet>& sets,
           const Tell& whole)
      : problem_(problem), places_(places), whole_(partOf(whole, kFirstShare, 1.0)) {
    for (const FormSet& set : sets) addWith(set);
    std::vector<FormSet> all;
    for (const auto& [set, theta] : thetas_) all.push_back(set);
    for (Found& found : search(problem, all, false, partOf(whole, 0.0, kFirstShare)))
      thetas_[found.forms] = std::move(found.theta);
    // Shorter sets come first, since longer ones begin with them.
    std::ranges::stable_sort(all, {}, &FormSet::size);
    for (std::size_t i = 0; i < all.size(); ++i) {
      thetas_[all[i]] = refined(all[i]);
      tell(whole_, i + 1, all.size());
    }
  }

  const Theta& thetaOf(const FormSet& set) const { return thetas_.at(set); }

 private:
  /// A set and all those that lack some of its structures.
  void addWith(const FormSet& set) {
    if (!thetas_.emplace(set, Theta()).second) return;
    for (std::size_t s = 0; s < set.size(); ++s) addWith(without(set, s));
  }

  Theta refined(const FormSet& set) const {
    const Theta& free = thetas_.at(set);
    if (set.empty()) return free;
    Sums sums(problem_, places_, set);
    Starts starts(kStarts, nearness(problem_, set, kRanges));
    const auto add = [&](const Theta& theta) {
      starts.add(theta, squaresOf(sums.residuals(theta, kRoundsAtStart)));
    };
    add(free);
    for (std::size_t s = 0; set.size() > 1 && s < set.size(); ++s) {
      if (s > 0 && set[s] == set[s - 1]) continue;
      for (const double range : rangeGrid(problem_.limits, set[s], kRanges))
        add(withRange(thetas_.at(without(set, s)), s, range));
    }
    Minimum best;
    for (const Starts::Place& place : starts.places())
      if (Minimum found = sums.descent(place.theta); best.theta.empty() || found.sum < best.sum)
        best = std::move(found);
    return best.theta;
  }

  const Problem& problem_;
  const Places& places_;
  Tell whole_;
  std::map<FormSet, Theta> thetas_;
};

/// What parameters come to, from sills of 0; with weights by the model when those have settled.
FoundTogether foundAt(Problem problem, const Places& places, const FormSet& set, Theta theta,
                      bool isReweighted) {
  GoulardVoltz fit(problem, places, set);
  SillMatrices sills = fit.fit(theta);
  for (int round = 0; isReweighted && round < kMostRounds; ++round) {
    if (renewWeights(problem.entries, fit.residuals()) < kSettled) break;
    theta = Sums(problem, places, set).descent(theta).theta;
    sills = fit.fit(theta);
  }
  FoundTogether found{set, theta, sills, sills.sum, 0, 0};
  Projection projection(problem, set);
  found.free = squaresOf(projection.residuals(theta));
  for (const Entry& entry : problem.entries)
    for (std::size_t i = 0; i < entry.size(); ++i) {
      const double value = entry.roots[i] * entry.values[i];
      found.total += value * value;
    }
  const double unit = problem.entries.front().sumUnit();
  for (double* sum : {&found.sum, &found.free, &found.total}) *sum *= unit;
  return found;
}

}  // namespace

std::vector<FoundTogether> searchTogether(const Problem& problem, const Places& places,
                                          const std::vector<FormSet>& sets, bool isReweighted,
                                          const Tell& whole) {
  const Together together(problem, places, sets, whole);
  std::vector<FoundTogether> all;
  all.reserve(sets.size());
  for (const FormSet& set : sets)
    all.push_back(foundAt(problem, places, set, together.thetaOf(set), isReweighted));
  return all;
}

}  // namespace zevfit::fitting
