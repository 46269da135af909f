#include <algorithm>

#include "zvm/verbs/fit_labels.h"
#include "zvm/verbs/fit_report.h"
#include "zvm/verbs/text.h"

namespace zevfit::verbs {
namespace {

Json jsonOf(const NestedModel& model) {
  Json structures = Json::array();
  for (const auto& structure : model.structures) {
    if (!structure) continue;
    const bool isPower = structure->form == Form::power;
    structures.push_back({{"form", letterOf(structure->form)},
                          {"sill", isPower ? 1.0 : structure->sill},
                          {isPower ? "exponent" : "range", structure->range}});
  }
  return {{"nugget", model.nugget}, {"structures", structures}};
}

Json jsonOf(const std::optional<fitting::Anisotropy>& anisotropy) {
  if (!anisotropy) return nullptr;
  Json object{{"azimuth", anisotropy->angles.azimuth}, {"minor1", anisotropy->minor1}};
  if (anisotropy->plane) return object;
  object.update({{"dip", anisotropy->angles.dip},
                 {"rotation", anisotropy->angles.rotation},
                 {"minor2", anisotropy->minor2}});
  return object;
}

/// What candidates of one variable and of several have in common.
template <class Candidate>
Json candidateJson(const Candidate& candidate, const fitting::Options& options, bool isChosen) {
  Json object{{"lines", labelOf(candidate.forms, options)},
              {"taken", isChosen},
              {"sum", candidate.sum},
              {"aicc", candidate.aicc},
              {"parameters", candidate.parameters},
              {"unbounded", candidate.unbounded},
              {"refusal", nullptr},
              {"ellipse", jsonOf(candidate.anisotropy)}};
  if (!candidate.refusal.empty()) object["refusal"] = candidate.refusal;
  return object;
}

Json ownJson(const fitting::Candidate& candidate) { return jsonOf(candidate.model); }

Json ownJson(const fitting::CoregionCandidate& candidate) {
  return {{"freeSum", candidate.free}, {"ranges", candidate.ranges}};
}

/// What results of one variable and of several have in common, for all directions or for one.
template <class Result>
Json resultJson(const FitReport& report, const Result& result, const Json& direction) {
  Json ranking = Json::array();
  for (std::size_t i = 0; i < result.ranking.size(); ++i) {
    ranking.push_back(candidateJson(result.ranking[i], report.plan.options,
                                    result.isOffered() && i == result.chosen));
    ranking.back().update(ownJson(result.ranking[i]));
  }
  return {{"direction", direction},
          {"fitted", result.isOffered()},
          {"refusal", result.isOffered() ? Json(nullptr) : Json(result.refusal)},
          {"unbounded", result.unbounded},
          {"classes", result.classes},
          {"ranking", ranking}};
}

/// Null where directions share a result.
Json directionJson(const FitReport& report, bool isShared, std::size_t direction) {
  return isShared ? Json(nullptr) : Json(directionName(report, direction));
}

Json modelsJson(const FitReport& report, const fitting::Result& result, std::size_t first) {
  Json models = Json::array();
  for (std::size_t d = 0; result.isOffered() && d < result.models.size(); ++d) {
    models.push_back({{"direction", directionName(report, first + d)}});
    models.back().update(jsonOf(result.models[d]));
  }
  return models;
}

Json variableJson(const FitReport& report, std::size_t task) {
  const fitting::VariableFit& fit = report.fits.variables[task];
  Json fits = Json::array();
  for (std::size_t r = 0; r < fit.results.size(); ++r) {
    fits.push_back(resultJson(report, fit.results[r], directionJson(report, fit.ellipse, r)));
    fits.back()["models"] = modelsJson(report, fit.results[r], fit.ellipse ? 0 : r);
  }
  return {{"name", variableName(report, report.plan.tasks[task].variable)},
          {"cross", report.plan.tasks[task].isCross},
          {"fitted", fit.isWhole()},
          {"fits", fits}};
}

Json coregionJson(const FitReport& report) {
  if (!report.fits.coregion) return nullptr;
  const fitting::CoregionFit& fit = *report.fits.coregion;
  const auto entries = entriesOf(*report.plan.coregion);
  Json variables = Json::array(), fits = Json::array(), models = Json::array();
  for (const std::int64_t v : report.plan.coregion->variables)
    variables.push_back(variableName(report, v));
  for (std::size_t r = 0; r < fit.results.size(); ++r)
    fits.push_back(resultJson(report, fit.results[r], directionJson(report, isShared(report), r)));
  for (std::size_t e = 0; fit.isOffered() && e < entries.size(); ++e)
    for (std::size_t d = 0; d < fit.models[e].size(); ++d) {
      models.push_back({{"variable", variableName(report, entries[e])},
                        {"direction", directionName(report, d)}});
      models.back().update(jsonOf(fit.models[e][d]));
    }
  return {{"variables", variables},
          {"fitted", fit.isOffered()},
          {"refusal", fit.isOffered() ? Json(nullptr) : Json(utf8Of(fit.refusal))},
          {"fits", fits},
          {"models", models}};
}

}  // namespace

Json jsonOf(const FitReport& report) {
  const fitting::Options& options = report.plan.options;
  Json forms = Json::array(), variables = Json::array(), missing = Json::array();
  for (const Form form : options.forms) forms.push_back(letterOf(form));
  for (std::size_t task = 0; task < report.plan.tasks.size(); ++task)
    variables.push_back(variableJson(report, task));
  for (const NotFitted& one : notFitted(report))
    missing.push_back({{"variable", one.variable},
                       {"direction", one.direction.empty() ? Json(nullptr) : Json(one.direction)},
                       {"reason", one.reason}});
  Json object{
      {"title", utf8Of(report.title)},
      {"weights", namesOf(options.weights).name},
      {"forms", forms},
      {"structures", nullptr},
      {"nugget", nullptr},
      {"directions", options.directions == fitting::Directions::free ? "free" : "geometric"},
      {"coregionalization", coregionJson(report)},
      {"variables", variables},
      {"notFitted", missing}};
  if (options.structures) object["structures"] = *options.structures;
  if (options.nugget) object["nugget"] = *options.nugget;
  return object;
}

}  // namespace zevfit::verbs
