#include "fitting/coregionalization.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "fitting/candidates.h"
#include "fitting/elementary.h"
#include "fitting/sill_matrices.h"
#include "fitting/write.h"
#include "session/fault.h"
#include "session/policy.h"

namespace zevfit::fitting {
namespace {

/// A nugget below this part of the sills is none beside Gaussian structures.
constexpr double kLeastNugget = 1e-3;
constexpr int kMostRounds = 50;
constexpr double kSettled = 1e-6;

/// A reason to refuse, told to the caller of the whole.
struct Refused {
  std::string why;
};

/// The variables and cross variables with their places in the matrices of sills.
struct Block {
  std::vector<std::int64_t> variables;  ///< of the entries
  Places places;
  std::vector<double> scales;  ///< product of the two standard deviations
  std::size_t order = 0;
};

double deviationOf(const FileTables& data, std::int64_t variable) {
  const double variance = data.variance(variable).number();
  if (!(variance > 0) || !std::isfinite(variance))
    throw Refused{"variable " + std::to_string(variable) + " has no variance above 0"};
  return std::sqrt(variance);
}

std::size_t placeOf(const Coregion& coregion, std::int64_t variable) {
  const auto at = std::ranges::find(coregion.variables, variable);
  if (at == coregion.variables.end())
    throw Refused{"variable " + std::to_string(variable) + " is none of those fitted together"};
  return static_cast<std::size_t>(at - coregion.variables.begin());
}

void requireCrosses(const Coregion& coregion, const Places& places) {
  for (std::size_t i = 0; i < coregion.variables.size(); ++i)
    for (std::size_t j = i + 1; j < coregion.variables.size(); ++j) {
      const auto count = std::ranges::count(places, std::pair(i, j));
      if (count == 1) continue;
      throw Refused{"variables " + std::to_string(coregion.variables[i]) + " and " +
                    std::to_string(coregion.variables[j]) + " have " +
                    (count == 0 ? "no cross variable" : "more than one cross variable")};
    }
}

Block blockOf(const FileTables& data, const Coregion& coregion) {
  if (coregion.variables.empty()) throw Refused{"there are no variables"};
  Block block;
  block.order = coregion.variables.size();
  std::vector<double> deviations;
  for (const std::int64_t variable : coregion.variables) {
    const std::size_t place = block.places.size();
    block.variables.push_back(variable);
    block.places.emplace_back(place, place);
    deviations.push_back(deviationOf(data, variable));
  }
  for (const CrossVariable& cross : coregion.crosses) {
    const std::size_t a = placeOf(coregion, cross.first), b = placeOf(coregion, cross.second);
    block.variables.push_back(cross.cross);
    block.places.emplace_back(std::min(a, b), std::max(a, b));
  }
  requireCrosses(coregion, block.places);
  for (const auto& [row, column] : block.places)
    block.scales.push_back(deviations[row] * deviations[column]);
  return block;
}

/// One direction, or all of an ellipse.
using Chosen = std::vector<std::int64_t>;

/// The classes of the entries in chosen directions.
std::vector<Entry> entriesOf(const FileTables& data, const Block& block, const Chosen& directions,
                             const Options& options) {
  std::vector<Entry> entries;
  for (std::size_t e = 0; e < block.variables.size(); ++e) {
    std::vector<DirectionClasses> classes;
    for (const std::int64_t d : directions)
      classes.push_back(
          {directionNamed(data.dirname(d)), classesOf(data, {block.variables[e], d})});
    Options own = options;
    own.cross = block.places[e].first != block.places[e].second;
    entries.push_back(entryOf(classes, own, block.scales[e]));
    if (entries.back().size() == 0)
      throw Refused{"variable " + std::to_string(block.variables[e]) + " has no class with pairs"};
  }
  shareUnits(entries);
  return entries;
}

std::vector<Arm> armsOf(const FileTables& data, const Block& block, const Chosen& directions) {
  std::vector<Arm> arms;
  for (const std::int64_t d : directions) {
    const std::optional<Direction> direction = directionNamed(data.dirname(d));
    if (!direction) throw Refused{"a direction has no azimuth and dip, as in 45;0"};
    const bool informs = std::ranges::any_of(block.variables, [&](std::int64_t v) {
      return !classesOf(data, {v, d}).empty();
    });
    arms.push_back({*direction, informs});
  }
  return arms;
}

/// A candidate with what is needed to write it.
struct Draft : CoregionCandidate {
  std::vector<std::vector<NestedModel>> models;
};

class Drafts {
 public:
  Drafts(const Block& block, const Problem& problem, const Options& options, bool hasEllipse)
      : block_(block), problem_(problem), options_(options), hasEllipse_(hasEllipse) {}

  std::vector<Draft> all() const {
    std::vector<Draft> drafts;
    std::vector<std::vector<Form>> sets = formSets(options_);
    std::erase_if(sets, [](const std::vector<Form>& set) {
      return std::ranges::count(set, Form::power) > 0;
    });
    if (sets.empty()) throw Refused{"a power form has no sills"};
    for (const Found& found : search(problem_, sets, false)) drafts.push_back(draftOf(found));
    return drafts;
  }

 private:
  Draft draftOf(const Found& found) const {
    Problem problem = problem_;
    const SillMatrices sills = fitted(problem, found);
    Draft draft;
    const double unit = problem.entries.front().sumUnit();
    draft.sum = sills.sum * unit;
    Projection projection(problem, found.forms);
    draft.free = squaresOf(projection.residuals(found.theta)) * unit;
    const std::size_t lines = found.forms.size() + (problem.nugget ? 0 : 1);
    draft.parameters =
        rangeParameters(problem, found.forms) + lines * block_.order * (block_.order + 1) / 2;
    draft.aicc = aiccOf(draft.sum, found.total, problem.classes(), draft.parameters);
    draft.forms = found.forms;
    refuse(sills, found, draft);
    describe(sills, found, draft);
    return draft;
  }

  /// The sills; with weights by the model those are renewed until they settle.
  SillMatrices fitted(Problem& problem, const Found& found) const {
    SillMatrices sills = GoulardVoltz(problem, block_.places, found.forms).fit(found.theta);
    if (options_.weights != Weights::pairsOverModel2) return sills;
    for (int round = 0; round < kMostRounds; ++round) {
      GoulardVoltz fit(problem, block_.places, found.forms);
      sills = fit.fit(found.theta);
      if (renewWeights(problem, fit.residuals()) < kSettled) break;
    }
    return sills;
  }

  static double renewWeights(Problem& problem, std::span<const double> residuals) {
    double change = 0;
    std::size_t at = 0;
    for (Entry& entry : problem.entries) {
      std::vector<double> model;
      for (std::size_t i = 0; i < entry.size(); ++i)
        model.push_back(entry.values[i] - residuals[at++] / entry.roots[i]);
      change = std::max(change, reweigh(entry, model));
    }
    shareUnits(problem.entries);
    return change;
  }

  void refuse(const SillMatrices& sills, const Found& found, Draft& draft) const {
    refuseNumbers(problem_.classes(), draft);
    double traces = 0;
    bool lacks = false;
    for (std::size_t k = 1; k < sills.lines.size(); ++k) {
      traces += sills.lines[k].trace();
      lacks = lacks || sills.lines[k].trace() == 0;
    }
    const bool smooth = !draft.forms.empty() &&
                        std::ranges::count(draft.forms, Form::gaussian) ==
                            static_cast<std::ptrdiff_t>(draft.forms.size()) &&
                        sills.lines[0].trace() < kLeastNugget * traces;
    if (!draft.refusal.empty()) return;
    if (traces == 0 && sills.lines[0].trace() == 0)
      draft.refusal = "all sills are 0";
    else if (lacks && !options_.structures)
      draft.refusal = "a structure has sills of 0";
    else if (smooth && !options_.smoothGaussian)
      draft.refusal = "Gaussian without a nugget";
    else
      refuseRanges(problem_, found.theta, draft);
  }

  void describe(const SillMatrices& sills, const Found& found, Draft& draft) const {
    const std::span<const double> ellipse = std::span(found.theta).subspan(found.forms.size());
    const EllipseFamily::Drawn drawn = problem_.family.drawn(ellipse);
    const std::vector<std::size_t> order = byRange(found.forms, found.theta);
    draft.forms.clear();
    for (const std::size_t s : order) {
      draft.forms.push_back(found.forms[s]);
      draft.ranges.push_back(asInFile(exponentialOf(found.theta[s]) * drawn.main));
    }
    if (hasEllipse_ && !order.empty()) draft.anisotropy = drawn.anisotropy;
    std::vector<double> scales(problem_.family.directions());
    problem_.family.scales(ellipse, scales);
    for (std::size_t e = 0; e < block_.places.size(); ++e) {
      draft.models.emplace_back();
      for (const double scale : scales)
        draft.models.back().push_back(modelOf(sills, found, order, e, scale));
    }
  }

  NestedModel modelOf(const SillMatrices& sills, const Found& found,
                      const std::vector<std::size_t>& order, std::size_t entry,
                      double scale) const {
    const auto& [row, column] = block_.places[entry];
    const double unit = block_.scales[entry] * problem_.entries[entry].unit;
    NestedModel model{asInFile(sills.lines[0].at(row, column) * unit), {}};
    std::size_t at = 0;
    for (const std::size_t s : order)
      if (sills.lines[s + 1].trace() > 0)
        model.structures.at(at++) =
            Structure{found.forms[s], asInFile(sills.lines[s + 1].at(row, column) * unit),
                      asInFile(exponentialOf(found.theta[s]) / scale)};
    return model;
  }

  const Block& block_;
  const Problem& problem_;
  const Options& options_;
  bool hasEllipse_;
};

Problem problemOf(const std::vector<Entry>& entries, EllipseFamily family, const Options& options) {
  Problem problem{entries, options.nugget, std::move(family), limitsOf(entries)};
  return problem;
}

/// Of equal sets the better drafts.
void takeBetter(std::vector<Draft>& drafts, std::vector<Draft> others) {
  if (drafts.empty()) drafts = std::move(others);
  for (std::size_t i = 0; i < others.size(); ++i)
    if (others[i].sum < drafts[i].sum) drafts[i] = std::move(others[i]);
}

CoregionFit fitChosen(const FileTables& data, const Block& block, const Chosen& directions,
                      const Options& options) {
  const std::vector<Entry> entries = entriesOf(data, block, directions, options);
  std::vector<Draft> drafts;
  if (directions.size() == 1) {
    const Problem problem = problemOf(entries, EllipseFamily::circle(1), options);
    drafts = Drafts(block, problem, options, false).all();
  } else {
    const std::vector<Arm> arms = armsOf(data, block, directions);
    for (const std::size_t main : mainChoices(arms)) {
      const Problem problem = problemOf(entries, EllipseFamily::of(arms, main), options);
      takeBetter(drafts, Drafts(block, problem, options, true).all());
    }
  }
  CoregionFit fit;
  for (const Entry& entry : entries) fit.classes += entry.size();
  const Choice choice = rank(drafts);
  fit.unbounded = choice.unbounded;
  fit.chosen = choice.place;
  if (choice.isOffered)
    fit.models = drafts[choice.place].models;
  else
    fit.refusal = refusalOf(choice, drafts.front(), options);
  for (Draft& draft : drafts) fit.ranking.push_back(std::move(draft));
  return fit;
}

/// Puts the models of one direction behind those of the others.
void append(CoregionFit& whole, CoregionFit one, std::int64_t direction) {
  if (direction == 1) {
    whole = std::move(one);
  } else {
    whole.classes += one.classes;
    for (std::size_t e = 0; e < one.models.size(); ++e)
      whole.models[e].insert(whole.models[e].end(), one.models[e].begin(), one.models[e].end());
    whole.unbounded = whole.unbounded || one.unbounded;
    whole.refusal = std::move(one.refusal);
  }
  if (!whole.isOffered())
    throw Refused{"direction " + std::to_string(direction) + ": " + whole.refusal};
}

CoregionFit fitted(const FileTables& data, const Coregion& coregion, const Options& options) {
  if (options.nugget.value_or(0) != 0) throw Refused{"a nugget that is told can only be 0"};
  const Block block = blockOf(data, coregion);
  Chosen directions;
  for (std::int64_t d = 1; d <= data.ndir; ++d) directions.push_back(d);
  if (options.directions == Directions::ellipse) return fitChosen(data, block, directions, options);
  CoregionFit whole;
  for (const std::int64_t d : directions) append(whole, fitChosen(data, block, {d}, options), d);
  return whole;
}

CoregionFit refused(const std::string& why) {
  CoregionFit fit;
  fit.refusal = why;
  return fit;
}

}  // namespace

CoregionFit fitCoregion(const FileTables& data, const Coregion& coregion, const Options& options) {
  try {
    return attempt([&] { return fitted(data, coregion, options); },
                   [] { return refused("a text stands in place of a number"); });
  } catch (const Refused& reason) {
    return refused(reason.why);
  }
}

}  // namespace zevfit::fitting
