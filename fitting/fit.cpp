#include "fitting/fit.h"

#include <algorithm>
#include <cmath>

#include "fitting/candidates.h"
#include "fitting/elementary.h"
#include "fitting/search.h"
#include "fitting/write.h"
#include "session/policy.h"

namespace zevfit::fitting {
namespace {

/// What sills of either sign may add up to, in largest semivariances.
constexpr double kLargestSills = 3;
constexpr const char* kNoClasses = "no class has pairs";

/// A problem of one variable, and what is asked of it.
struct Task {
  Problem problem;
  const Options& options;
  bool hasEllipse = false;
};

Task taskOf(const std::vector<DirectionClasses>& directions, EllipseFamily family,
            const Options& options, bool hasEllipse) {
  Task task{{{entryOf(directions, options)}, {}, std::move(family), {}}, options, hasEllipse};
  if (options.nugget) task.problem.nugget = *options.nugget / task.problem.entries[0].unit;
  task.problem.limits = limitsOf(task.problem.entries);
  return task;
}

/// The model where mean ranges are multiplied by a factor.
NestedModel modelOf(const Found& found, double factor) {
  const Vec<kMostColumns>& sills = found.sills.front();
  NestedModel model{asInFile(sills[0]), {}};
  std::size_t at = 0;
  for (const std::size_t s : byRange(found.forms, found.theta)) {
    const bool isPower = found.forms[s] == Form::power;
    const double range = isPower ? found.theta[s] : exponentialOf(found.theta[s]) * factor;
    model.structures.at(at++) =
        Structure{found.forms[s], isPower ? 1 : asInFile(sills.at(s + 1)), asInFile(range)};
  }
  return model;
}

std::size_t parametersOf(const Problem& problem, const std::vector<Form>& forms) {
  const auto powers = static_cast<std::size_t>(std::ranges::count(forms, Form::power));
  return rangeParameters(problem, forms) + forms.size() - powers + (problem.nugget ? 0 : 1);
}

bool lacksSill(const NestedModel& model) {
  return std::ranges::any_of(model.structures,
                             [](const auto& one) { return one && one->sill == 0; });
}

/// Sills of either sign that are large beside the data, as those of structures that hardly differ.
bool cancels(const NestedModel& model, const Entry& entry) {
  double sum = std::abs(model.nugget), sums = model.nugget, largest = 0;
  for (const std::optional<Structure>& structure : model.structures)
    if (structure && structure->form != Form::power) {
      sum += std::abs(structure->sill);
      sums += structure->sill;
    }
  for (const double value : entry.values) largest = std::max(largest, std::abs(value));
  return std::abs(sums) < sum && sum > kLargestSills * largest * entry.unit;
}

bool isSmooth(const NestedModel& model) {
  double sills = 0;
  for (const std::optional<Structure>& structure : model.structures) {
    if (!structure || structure->sill == 0) continue;
    if (structure->form != Form::gaussian) return false;
    sills += std::abs(structure->sill);
  }
  return std::abs(model.nugget) < kLeastNugget * sills;
}

void refuseModel(const Task& task, Candidate& candidate) {
  const Options& options = task.options;
  if (candidate.forms.empty() && candidate.model.nugget == 0)
    candidate.refusal = options.nugget ? "nothing is left without a nugget" : "all sills are 0";
  else if (!options.structures && lacksSill(candidate.model))
    candidate.refusal = "a structure has a sill of 0";
  else if (cancels(candidate.model, task.problem.entries.front()))
    candidate.refusal = "its sills cancel each other";
  else if (!options.smoothGaussian && isSmooth(candidate.model))
    candidate.refusal = "Gaussian without a nugget";
}

Candidate candidateOf(const Task& task, const Found& found) {
  const Problem& problem = task.problem;
  Candidate candidate;
  candidate.forms = found.forms;
  candidate.sum = found.sum;
  candidate.parameters = parametersOf(problem, found.forms);
  candidate.aicc = aiccOf(found.sum, found.total, problem.classes(), candidate.parameters);
  const std::span<const double> ellipse = std::span(found.theta).subspan(found.forms.size());
  const EllipseFamily::Drawn drawn = problem.family.drawn(ellipse);
  candidate.model = modelOf(found, drawn.main);
  std::vector<double> scales(problem.family.directions());
  problem.family.scales(ellipse, scales);
  for (const double scale : scales) candidate.models.push_back(modelOf(found, 1 / scale));
  const bool hasRange =
      std::ranges::any_of(found.forms, [](Form form) { return form != Form::power; });
  if (task.hasEllipse && hasRange) candidate.anisotropy = drawn.anisotropy;
  refuseNumbers(problem.classes(), candidate);
  if (candidate.refusal.empty()) refuseModel(task, candidate);
  if (candidate.refusal.empty()) refuseRanges(problem, found.theta, candidate);
  candidate.forms.clear();
  for (const std::size_t s : byRange(found.forms, found.theta))
    candidate.forms.push_back(found.forms[s]);
  return candidate;
}

std::vector<Candidate> candidatesOf(const Task& task, const Tell& whole = {}) {
  std::vector<Candidate> candidates;
  const bool isReweighted = task.options.weights == Weights::pairsOverModel2;
  for (const Found& found : search(task.problem, formSets(task.options), isReweighted, whole))
    candidates.push_back(candidateOf(task, found));
  return candidates;
}

Result resultOf(std::vector<Candidate> candidates, std::size_t classes) {
  Result result;
  result.ranking = std::move(candidates);
  result.classes = classes;
  const Choice choice = rank(result.ranking);
  result.unbounded = choice.unbounded;
  result.chosen = choice.place;
  if (choice.isOffered)
    result.models = result.choice().models;
  else
    result.refusal = refusalOf(choice, result.ranking.front());
  return result;
}

Result refused(std::string why) {
  Result result;
  result.refusal = std::move(why);
  return result;
}

Result oneModel(const FileTables& data, Pair pair, const Options& options) {
  return attempt([&] { return startModel(classesOf(data, pair), options); },
                 [] { return refused("a text stands in place of a number"); });
}

}  // namespace

Result startModel(const Classes& classes, const Options& options) {
  if (classes.empty()) return refused(kNoClasses);
  const Task task =
      taskOf({DirectionClasses{{}, classes}}, EllipseFamily::circle(1), options, false);
  return resultOf(candidatesOf(task), task.problem.classes());
}

Result ellipseModel(const std::vector<DirectionClasses>& directions, const Options& options,
                    const Tell& whole) {
  if (directions.size() == 1) return startModel(directions.front().classes, options);
  std::vector<Arm> arms;
  bool isEmpty = true;
  for (const DirectionClasses& one : directions) {
    if (!one.direction) return refused("a direction has no azimuth and dip, as in 45;0");
    arms.push_back({*one.direction, !one.classes.empty()});
    isEmpty = isEmpty && one.classes.empty();
  }
  if (isEmpty) return refused(kNoClasses);
  std::vector<Candidate> candidates;
  std::size_t classes = 0;
  const std::vector<std::size_t> mains = mainChoices(arms);
  for (std::size_t i = 0; i < mains.size(); ++i) {
    const Task task = taskOf(directions, EllipseFamily::of(arms, mains[i]), options, true);
    classes = task.problem.classes();
    takeBetter(candidates, candidatesOf(task, partOf(whole, i, mains.size())));
  }
  return resultOf(std::move(candidates), classes);
}

bool VariableFit::isWhole() const {
  return std::ranges::all_of(results, [](const Result& one) { return one.isOffered(); });
}

VariableFit fitVariable(const FileTables& data, std::int64_t variable, const Options& options,
                        const Tell& whole) {
  VariableFit fit;
  fit.ellipse = options.directions == Directions::ellipse && data.ndir > 1;
  if (fit.ellipse) {
    fit.results.push_back(
        attempt([&] { return ellipseModel(directionsOf(data, variable), options, whole); },
                [] { return refused("a text stands in place of a number"); }));
    return fit;
  }
  for (std::int64_t d = 1; d <= data.ndir; ++d) {
    fit.results.push_back(oneModel(data, {variable, d}, options));
    tell(whole, static_cast<std::size_t>(d), static_cast<std::size_t>(data.ndir));
  }
  return fit;
}

}  // namespace zevfit::fitting
