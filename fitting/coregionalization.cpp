#include "fitting/coregionalization.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "fitting/candidates.h"
#include "fitting/coregion_search.h"
#include "fitting/elementary.h"
#include "fitting/write.h"
#include "session/fault.h"
#include "session/policy.h"

namespace zevfit::fitting {
namespace {

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

std::string nameOf(const FileTables& data, std::int64_t variable) {
  return '`' + data.varname(variable) + '`';
}

double deviationOf(const FileTables& data, std::int64_t variable) {
  const double variance = data.variance(variable).number();
  if (!(variance > 0) || !std::isfinite(variance))
    throw Refused{nameOf(data, variable) + " has no variance above 0"};
  return std::sqrt(variance);
}

std::size_t placeOf(const FileTables& data, const Coregion& coregion, std::int64_t variable) {
  const auto at = std::ranges::find(coregion.variables, variable);
  if (at == coregion.variables.end())
    throw Refused{nameOf(data, variable) + " is none of those fitted together"};
  return static_cast<std::size_t>(at - coregion.variables.begin());
}

void requireCrosses(const FileTables& data, const Coregion& coregion, const Places& places) {
  for (std::size_t i = 0; i < coregion.variables.size(); ++i)
    for (std::size_t j = i + 1; j < coregion.variables.size(); ++j) {
      const auto count = std::ranges::count(places, std::pair(i, j));
      if (count == 1) continue;
      throw Refused{nameOf(data, coregion.variables[i]) + " and " +
                    nameOf(data, coregion.variables[j]) + " have " +
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
    const std::size_t a = placeOf(data, coregion, cross.first),
                      b = placeOf(data, coregion, cross.second);
    block.variables.push_back(cross.cross);
    block.places.emplace_back(std::min(a, b), std::max(a, b));
  }
  requireCrosses(data, coregion, block.places);
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
      throw Refused{nameOf(data, block.variables[e]) + " has no class with pairs"};
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

  std::vector<Draft> all(const Tell& whole) const {
    std::vector<Draft> drafts;
    std::vector<std::vector<Form>> sets = formSets(options_);
    std::erase_if(sets, [](const std::vector<Form>& set) {
      return std::ranges::count(set, Form::power) > 0;
    });
    if (sets.empty()) throw Refused{"a power form has no sills"};
    const bool isReweighted = options_.weights == Weights::pairsOverModel2;
    for (const FoundTogether& found :
         searchTogether(problem_, block_.places, sets, isReweighted, whole))
      drafts.push_back(draftOf(found));
    return drafts;
  }

 private:
  Draft draftOf(const FoundTogether& found) const {
    Draft draft;
    draft.sum = found.sum;
    draft.free = found.free;
    const std::size_t lines = found.forms.size() + (problem_.nugget ? 0 : 1);
    draft.parameters =
        rangeParameters(problem_, found.forms) + lines * block_.order * (block_.order + 1) / 2;
    draft.aicc = aiccOf(draft.sum, found.total, problem_.classes(), draft.parameters);
    draft.forms = found.forms;
    refuse(found, draft);
    describe(found, draft);
    return draft;
  }

  void refuse(const FoundTogether& found, Draft& draft) const {
    const SillMatrices& sills = found.sills;
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

  void describe(const FoundTogether& found, Draft& draft) const {
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
        draft.models.back().push_back(modelOf(found, order, e, scale));
    }
  }

  NestedModel modelOf(const FoundTogether& found, const std::vector<std::size_t>& order,
                      std::size_t entry, double scale) const {
    const SillMatrices& sills = found.sills;
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

/// Of one direction, or of all with an ellipse; one result.
CoregionFit fitChosen(const FileTables& data, const Block& block, const Chosen& directions,
                      const Options& options, const Tell& whole) {
  const std::vector<Entry> entries = entriesOf(data, block, directions, options);
  std::vector<Draft> drafts;
  if (directions.size() == 1) {
    const Problem problem = problemOf(entries, EllipseFamily::circle(1), options);
    drafts = Drafts(block, problem, options, false).all(whole);
  } else {
    const std::vector<Arm> arms = armsOf(data, block, directions);
    const std::vector<std::size_t> mains = mainChoices(arms);
    for (std::size_t i = 0; i < mains.size(); ++i) {
      const Problem problem = problemOf(entries, EllipseFamily::of(arms, mains[i]), options);
      takeBetter(drafts, Drafts(block, problem, options, true).all(partOf(whole, i, mains.size())));
    }
  }
  CoregionResult result;
  for (const Entry& entry : entries) result.classes += entry.size();
  const Choice choice = rank(drafts);
  result.unbounded = choice.unbounded;
  result.chosen = choice.place;
  CoregionFit fit;
  if (choice.isOffered)
    fit.models = drafts[choice.place].models;
  else
    result.refusal = refusalOf(choice, drafts.front());
  for (Draft& draft : drafts) result.ranking.push_back(std::move(draft));
  fit.refusal = result.refusal;
  fit.results.push_back(std::move(result));
  return fit;
}

/// Puts the models of one direction behind those of the others; false where it has none.
bool append(CoregionFit& whole, CoregionFit one) {
  whole.results.push_back(std::move(one.results.front()));
  whole.refusal = std::move(one.refusal);
  if (!whole.isOffered()) return false;
  whole.models.resize(one.models.size());
  for (std::size_t e = 0; e < one.models.size(); ++e)
    whole.models[e].push_back(one.models[e].front());
  return true;
}

CoregionFit fitted(const FileTables& data, const Coregion& coregion, const Options& options,
                   const Tell& whole) {
  if (options.nugget.value_or(0) != 0) throw Refused{"a nugget that is told can only be 0"};
  const Block block = blockOf(data, coregion);
  Chosen directions;
  for (std::int64_t d = 1; d <= data.ndir; ++d) directions.push_back(d);
  if (options.directions == Directions::ellipse)
    return fitChosen(data, block, directions, options, whole);
  CoregionFit fit;
  for (std::size_t i = 0; i < directions.size(); ++i) {
    const Tell part = partOf(whole, i, directions.size());
    if (append(fit, fitChosen(data, block, {directions[i]}, options, part))) continue;
    fit.refusal = "direction " + data.dirname(directions[i]) + ": " + fit.refusal;
    break;
  }
  return fit;
}

CoregionFit refused(const std::string& why) {
  CoregionFit fit;
  fit.refusal = why;
  return fit;
}

}  // namespace

CoregionFit fitCoregion(const FileTables& data, const Coregion& coregion, const Options& options,
                        const Tell& whole) {
  try {
    return attempt([&] { return fitted(data, coregion, options, whole); },
                   [] { return refused("a text stands in place of a number"); });
  } catch (const Refused& reason) {
    return refused(reason.why);
  }
}

}  // namespace zevfit::fitting
